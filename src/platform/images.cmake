# The image library's implementation; it stands on libvips on every system.
pkg_check_modules(VIPS REQUIRED IMPORTED_TARGET vips)
target_sources(platform PRIVATE bmp_picture.cpp gif_picture.cpp ${QUORVANE_SYSTEM}/image_library.cpp)
target_link_libraries(platform PRIVATE PkgConfig::VIPS)
