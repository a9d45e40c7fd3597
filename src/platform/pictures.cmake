# The image library for systems that bring none: libvips, and what it does not read.
pkg_check_modules(VIPS REQUIRED IMPORTED_TARGET GLOBAL vips)
pkg_check_modules(PANGO REQUIRED IMPORTED_TARGET GLOBAL pangocairo pangoft2)
target_sources(platform PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/bmp_picture.cpp
  ${CMAKE_CURRENT_LIST_DIR}/gif_picture.cpp
  ${CMAKE_CURRENT_LIST_DIR}/image_library.cpp
  ${CMAKE_CURRENT_LIST_DIR}/picture_tools.cpp
  ${CMAKE_CURRENT_LIST_DIR}/vips_library.cpp)
target_link_libraries(platform PRIVATE PkgConfig::VIPS PkgConfig::PANGO)
