# Apart from the folder's other tests: these make and inspect pictures with the library itself.
pkg_check_modules(VIPS REQUIRED IMPORTED_TARGET vips)
quorvane_unit_test(images
  SOURCES bmp_picture_test.cpp image_library_test.cpp
  LINKS platform PkgConfig::VIPS
)
