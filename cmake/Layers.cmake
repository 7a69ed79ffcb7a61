# A layer is a static library of every source in its folder. It sees its own headers and those of the layers that it
# names, and nothing else: each layer's headers are reached through a folder of links that holds that layer alone.
#
#   add_layer(data SEES session)              src/data, including <data/...>, <session/...>, <forms/...>
#   add_layer(host_database FOLDER host/database ...)
#
# PARTS names folders within its folder whose sources belong to it too.
# PLAIN keeps toolkits, platforms and engines out: their headers, where the system's include path would offer them,
# are shadowed by ones that refuse to compile. The standard library's headers are precompiled once, by the first layer;
# HEADERS names a file of further ones to precompile with them, HEADERS_OF the layer that did so: what sees the toolkit uses
# the one of views, as the toolkit brings flags of its own.
function(add_layer name)
  cmake_parse_arguments(ARG "PLAIN" "FOLDER;HEADERS;HEADERS_OF" "SEES;USES;PARTS" ${ARGN})
  if(NOT ARG_FOLDER)
    set(ARG_FOLDER src/${name})
  endif()
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${ARG_FOLDER}/*.cpp)
  foreach(part ${ARG_PARTS})
    file(GLOB part_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${ARG_FOLDER}/${part}/*.cpp)
    list(APPEND sources ${part_sources})
  endforeach()
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
    get_property(standard_headers_of GLOBAL PROPERTY STANDARD_HEADERS_OF)
    if(ARG_HEADERS OR NOT standard_headers_of)
      target_precompile_headers(${name} PRIVATE ${PROJECT_SOURCE_DIR}/cmake/standard.pch.h ${ARG_HEADERS})
    elseif(ARG_HEADERS_OF)
      target_precompile_headers(${name} REUSE_FROM ${ARG_HEADERS_OF})
    else()
      target_precompile_headers(${name} REUSE_FROM ${standard_headers_of})
    endif()
    if(NOT standard_headers_of)
      set_property(GLOBAL PROPERTY STANDARD_HEADERS_OF ${name})
    endif()
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${name} ${scope} ${window})
  target_link_libraries(${name} ${scope} ${ARG_SEES} ${ARG_USES})
endfunction()
