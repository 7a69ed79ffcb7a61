# A layer is a static library of every source in its folder. It sees its own headers and those of the layers that it
# names, and nothing else: each layer's headers are reached through a folder of links that holds that layer alone.
#
#   add_layer(data SEES session)              src/data, including <data/...>, <session/...>, <forms/...>
#   add_layer(host_database FOLDER host/database ...)
#
# PLAIN keeps toolkits, platforms and engines out: their headers, where the system's include path would offer them,
# are shadowed by ones that refuse to compile.
function(add_layer name)
  cmake_parse_arguments(ARG "PLAIN" "FOLDER" "SEES;USES" ${ARGN})
  if(NOT ARG_FOLDER)
    set(ARG_FOLDER src/${name})
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${ARG_FOLDER}/*.cpp)
  get_filename_component(folder_name ${ARG_FOLDER} NAME)
  set(window ${PROJECT_BINARY_DIR}/layers/${name})
  file(MAKE_DIRECTORY ${window})
  file(CREATE_LINK ${PROJECT_SOURCE_DIR}/${ARG_FOLDER} ${window}/${folder_name} SYMBOLIC)
  if(sources)
    add_library(${name} STATIC ${sources})
    set(scope PUBLIC)
    if(ARG_PLAIN)
      target_include_directories(${name} BEFORE PRIVATE ${PROJECT_SOURCE_DIR}/cmake/forbidden)
    endif()
    target_precompile_headers(${name} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/standard.pch.h)
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${name} ${scope} ${window})
  target_link_libraries(${name} ${scope} ${ARG_SEES} ${ARG_USES})
endfunction()
