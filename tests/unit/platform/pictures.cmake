# Apart from the folder's other tests: these make and inspect pictures with the library itself.
quorvane_unit_test(platform_pictures
  SOURCES bmp_picture_test.cpp image_library_test.cpp picture_tools_test.cpp
  LINKS platform PkgConfig::VIPS
)
