# Writes the bundle's property list with the numbers given to this script, to the file TO.
cmake_minimum_required(VERSION 3.25)
include(${CMAKE_CURRENT_LIST_DIR}/../../packaging/macos/Bundle.cmake)
vellix_info_plist(${TO})
