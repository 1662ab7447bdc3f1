# Warnings are errors in our own code. Generated code (moc, QML caches) is compiled with them too.
add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
                    -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Known false alarms of g++ 12 on coroutine frames and inlined std::string moves.
  add_compile_options(-Wno-maybe-uninitialized -Wno-restrict -Wno-mismatched-new-delete)
endif()
