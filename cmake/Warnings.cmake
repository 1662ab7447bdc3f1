# Warnings are errors in our own code. Generated code (moc, QML caches) is compiled with them too.
# Missing initializers are what defaulted fields of a designated initializer are for.
add_compile_options(-Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual -Werror
                    -Wno-missing-field-initializers)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Of other compilers' -Wshadow, which counts parameters named as a field, nothing is asked.
  # The others are known false alarms of g++ 12 on coroutine frames and moved strings.
  add_compile_options(-Wshadow=local -Wno-array-bounds -Wno-maybe-uninitialized
                      -Wno-mismatched-new-delete -Wno-restrict -Wno-stringop-overflow
                      -Wno-stringop-overread)
endif()
