# vellix_folder(LOGIC <files...> MODELS <files...> VIEWS <files...> LINK <targets...>
#               USES <modules...>)
#
# Lists one folder of src/ by kind. LOGIC joins vellix_core, which is compiled without Qt. MODELS
# and VIEWS become the QML module Vellix.<Folder> in the library vellix_<folder>. LINK names the
# folders' libraries whose QML modules or models the views and models here use; USES the modules
# whose types are types of properties here.
function(vellix_folder)
  cmake_parse_arguments(PARSE_ARGV 0 arg "" "" "LOGIC;MODELS;VIEWS;LINK;USES")
  get_filename_component(name ${CMAKE_CURRENT_SOURCE_DIR} NAME)

  if(arg_LOGIC)
    list(TRANSFORM arg_LOGIC PREPEND ${CMAKE_CURRENT_SOURCE_DIR}/)
    target_sources(vellix_core PRIVATE ${arg_LOGIC})
  endif()

  if(VELLIX_APP AND (arg_MODELS OR arg_VIEWS))
    string(SUBSTRING ${name} 0 1 initial)
    string(TOUPPER ${initial} initial)
    string(SUBSTRING ${name} 1 -1 rest)
    qt_add_qml_module(vellix_${name} STATIC
      URI Vellix.${initial}${rest}
      VERSION 1.0
      RESOURCE_PREFIX /qt/qml
      DEPENDENCIES QtQuick ${arg_USES}
      OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml/Vellix/${initial}${rest}
      SOURCES ${arg_MODELS}
      QML_FILES ${arg_VIEWS})
    # The views' byte code is compiled in one piece: each alone would spend its time on one header.
    set_target_properties(vellix_${name} PROPERTIES
      QT_QMLCACHEGEN_ARGUMENTS "--only-bytecode"
      UNITY_BUILD ON
      UNITY_BUILD_BATCH_SIZE 0)
    set_source_files_properties(${arg_MODELS}
      ${CMAKE_CURRENT_BINARY_DIR}/vellix_${name}_qmltyperegistrations.cpp
      PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    target_include_directories(vellix_${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR}
                                                     ${PROJECT_SOURCE_DIR}/src)
    target_link_libraries(vellix_${name} PUBLIC vellix_core Qt6::Quick ${arg_LINK})
    target_precompile_headers(vellix_${name} REUSE_FROM vellix_read_ahead)
    set_property(GLOBAL APPEND PROPERTY VELLIX_MODULES vellix_${name})
    if("ViewTypes.hpp" IN_LIST arg_MODELS)
      set_property(GLOBAL APPEND PROPERTY VELLIX_VIEW_TYPES ${name}/ViewTypes.hpp)
    endif()
  endif()
endfunction()
