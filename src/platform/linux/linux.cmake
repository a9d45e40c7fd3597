# What this system's implementations need beside the standard library.
pkg_check_modules(SYSTEMD REQUIRED IMPORTED_TARGET GLOBAL libsystemd)
pkg_check_modules(NCURSES REQUIRED IMPORTED_TARGET ncursesw)

set(SYSTEM_SOURCES
  linux/systemd_bus.cpp
  linux/systemd_service.cpp
  linux/systemd_unit.cpp
  linux/terminal.cpp
  linux/terminal_rescue.cpp
)
set(SYSTEM_LINKS PkgConfig::SYSTEMD PkgConfig::NCURSES)
