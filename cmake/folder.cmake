# One library target per source folder. A folder's headers are reached as
# "folder/header.h" through an include directory of its own, so a file can only
# include what its target links: a wrong include does not compile.
function(quorvane_folder name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  set(include_dir ${PROJECT_BINARY_DIR}/include/${name})
  file(MAKE_DIRECTORY ${include_dir})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${include_dir}/${name} SYMBOLIC)
  if(ARG_SOURCES)
    add_library(${name} STATIC ${ARG_SOURCES})
    target_include_directories(${name} PUBLIC ${include_dir})
    target_link_libraries(${name} PUBLIC ${ARG_LINKS} PRIVATE ${ARG_PRIVATE_LINKS})
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${include_dir})
    target_link_libraries(${name} INTERFACE ${ARG_LINKS})
  endif()
endfunction()
