# Two builds of one commit are to be the same, so resources are compiled by a rcc that is told a time.
get_target_property(configurations Qt6::rcc IMPORTED_CONFIGURATIONS)
foreach(configuration IN LISTS configurations)
  get_target_property(rcc Qt6::rcc IMPORTED_LOCATION_${configuration})
  configure_file(${CMAKE_CURRENT_LIST_DIR}/rcc.in ${CMAKE_BINARY_DIR}/rcc @ONLY)
  set_target_properties(Qt6::rcc PROPERTIES
                        IMPORTED_LOCATION_${configuration} ${CMAKE_BINARY_DIR}/rcc)
endforeach()
