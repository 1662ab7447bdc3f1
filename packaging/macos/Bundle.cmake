# The program as a bundle, whose numbers are those of the build.
set(bundle_name Vellix)
set(bundle_identifier com.rennyvale.Sorel)
set(macos_folder ${CMAKE_CURRENT_LIST_DIR})

# vellix_info_plist(<file>)
function(vellix_info_plist to)
  configure_file(${macos_folder}/Info.plist.in ${to} @ONLY)
endfunction()

# vellix_iconset_program()
#
# The program that draws the icon in every size that the Mac asks for.
function(vellix_iconset_program)
  add_executable(vellix_iconset ${macos_folder}/iconset.cpp)
  target_link_libraries(vellix_iconset PRIVATE Qt6::Gui Qt6::Svg)
endfunction()

# vellix_bundle(<target>)
#
# Makes a bundle of the program, in the folder that calls.
function(vellix_bundle target)
  vellix_info_plist(${CMAKE_CURRENT_BINARY_DIR}/Info.plist)
  vellix_iconset_program()
  set(drawing ${PROJECT_SOURCE_DIR}/packaging/vellix.svg)
  set(iconset ${CMAKE_CURRENT_BINARY_DIR}/${bundle_name}.iconset)
  set(icon ${CMAKE_CURRENT_BINARY_DIR}/${bundle_name}.icns)
  add_custom_command(OUTPUT ${icon}
    COMMAND vellix_iconset ${drawing} ${iconset}
    COMMAND iconutil --convert icns --output ${icon} ${iconset}
    DEPENDS vellix_iconset ${drawing}
    VERBATIM)
  target_sources(${target} PRIVATE ${icon})
  set_source_files_properties(${icon} PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
  set_target_properties(${target} PROPERTIES
    MACOSX_BUNDLE ON
    MACOSX_BUNDLE_INFO_PLIST ${CMAKE_CURRENT_BINARY_DIR}/Info.plist
    OUTPUT_NAME ${bundle_name})
endfunction()
