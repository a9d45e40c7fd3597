# quorvane_resources(TARGET DESCRIPTION [OWN_CONSOLE_NEVER]): what a program tells its
# system about itself, where the system keeps that within the program: icon, version, manifest. A program that is
# started by itself may do without a console.
if(WIN32)
  enable_language(RC)
  find_program(MESSAGE_COMPILER ${triple}-windmc REQUIRED)
endif()

function(quorvane_resources target description)
  if(NOT WIN32)
    return()
  endif()
  cmake_parse_arguments(ARG "OWN_CONSOLE_NEVER" "" "" ${ARGN})
  set(settings "")
  if(ARG_OWN_CONSOLE_NEVER)  # since Windows 11 24H2; unknown to others, who pass over it
    set(settings "\n      <consoleAllocationPolicy xmlns=\"http://schemas.microsoft.com/SMI/2024/WindowsSettings\">detached</consoleAllocationPolicy>")
  endif()
  set(folder ${PROJECT_SOURCE_DIR}/src/platform/windows/resources)
  set(made ${PROJECT_BINARY_DIR}/resources)
  set(manifest ${made}/${target}.manifest)
  set(messages ${made}/MSG00409.bin)
  string(REPLACE "." "," numbers "${PROJECT_VERSION}")
  configure_file(${folder}/program.manifest.in ${manifest} @ONLY)
  configure_file(${folder}/program.rc.in ${made}/${target}.rc @ONLY)
  if(NOT EXISTS ${messages} OR ${folder}/events.mc IS_NEWER_THAN ${messages})
    execute_process(COMMAND ${MESSAGE_COMPILER} -h ${made} -r ${made} ${folder}/events.mc
                    COMMAND_ERROR_IS_FATAL ANY)
  endif()
  set_source_files_properties(${made}/${target}.rc PROPERTIES OBJECT_DEPENDS
    "${manifest};${folder}/quorvane.ico;${messages}")
  target_sources(${target} PRIVATE ${made}/${target}.rc)
endfunction()
