# The library of the JScript engine, made from the source that Debian's duktape-dev ships: the one
# built there has no time check, and its errors pass by the destructors of C++. What it does in one
# piece, without looking at the time, is kept short: walks of an array, matches of a pattern. Objects
# of the host can be called, and are objects to typeof all the same.
find_path(DUKTAPE_SOURCE duktape.c PATHS /usr/share/duktape /usr/local/share/duktape
          NO_DEFAULT_PATH NO_CMAKE_FIND_ROOT_PATH REQUIRED)
set(duktape_dir ${PROJECT_BINARY_DIR}/duktape)

# quorvane_changed_copy(FILE OLD NEW ...): the library's file with each OLD, which must be there,
# replaced.
function(quorvane_changed_copy file)
  file(READ ${DUKTAPE_SOURCE}/${file} text)
  math(EXPR last "${ARGC} - 1")
  foreach(at RANGE 1 ${last} 2)
    math(EXPR next "${at} + 1")
    string(FIND "${text}" "${ARGV${at}}" found)
    if(found EQUAL -1)
      message(FATAL_ERROR "${DUKTAPE_SOURCE}/${file} is of a release that is not known here: "
                          "it lacks '${ARGV${at}}'")
    endif()
    string(REPLACE "${ARGV${at}}" "${ARGV${next}}" text "${text}")
  endforeach()
  file(WRITE ${duktape_dir}/new/${file} "${text}")
  configure_file(${duktape_dir}/new/${file} ${duktape_dir}/${file} COPYONLY)
endfunction()

quorvane_changed_copy(duk_config.h
  "#undef DUK_USE_EXEC_TIMEOUT_CHECK\n"
  "extern \"C\" int quorvaneTimeIsOver(void*);
#define DUK_USE_EXEC_TIMEOUT_CHECK(world) quorvaneTimeIsOver(world)\n"
  "#undef DUK_USE_INTERRUPT_COUNTER\n" "#define DUK_USE_INTERRUPT_COUNTER\n"
  "#undef DUK_USE_CPP_EXCEPTIONS\n" "#define DUK_USE_CPP_EXCEPTIONS\n")
set(look "if (quorvaneTimeIsOver(thr->heap->heap_udata)) DUK_ERROR_RANGE(thr, \"time is over\");")
quorvane_changed_copy(duktape.c
  "IS_CALLABLE(obj)) {\n\t\t\tstridx = DUK_STRIDX_LC_FUNCTION;"
  "IS_CALLABLE(obj) && !DUK_HOBJECT_IS_PROXY(obj)) {\n\t\t\tstridx = DUK_STRIDX_LC_FUNCTION;"
  "i < DUK_HEAP_ALLOC_FAIL_MARKANDSWEEP_LIMIT" "i < 2"
  "DUK_HTHREAD_INTCTR_DEFAULT (256L * 1024L)" "DUK_HTHREAD_INTCTR_DEFAULT 256L"
  "DUK_RE_EXECUTE_STEPS_LIMIT 1000000000L" "DUK_RE_EXECUTE_STEPS_LIMIT 50000000L"
  "steps_limit = DUK_RE_EXECUTE_STEPS_LIMIT;" "steps_limit = DUK_RE_EXECUTE_STEPS_LIMIT; ${look}"
  "ToObject(this) ToUint32(length) ] */\n\treturn len;"
  "ToObject(this) ToUint32(length) ] */
	if (len > 4194304) DUK_ERROR_RANGE_INVALID_LENGTH(thr);
	if (len > 1024) ${look}
	return len;")
configure_file(${DUKTAPE_SOURCE}/duktape.h ${duktape_dir}/duktape.h COPYONLY)

set_source_files_properties(${duktape_dir}/duktape.c PROPERTIES LANGUAGE CXX)
add_library(duktape STATIC ${duktape_dir}/duktape.c)
target_include_directories(duktape SYSTEM PUBLIC ${duktape_dir})
target_compile_options(duktape PRIVATE -w -O2 -fno-sanitize=all)
