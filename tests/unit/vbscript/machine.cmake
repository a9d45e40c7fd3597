quorvane_unit_test(vbscript_machine
  SOURCES
    machine_bytecode_test.cpp
    machine_engine_test.cpp
    machine_limits_test.cpp
  LINKS vbscript
)
