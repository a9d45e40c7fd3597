# Apart from the folder's other tests: these work with the library for pictures.
quorvane_unit_test(platform_pictures
  SOURCES
    bmp_picture_test.cpp
    image_library_test.cpp
    picture_tools_test.cpp
    raster_pictures_test.cpp
  LINKS platform
)
if(TARGET quorvane-pictures)
  target_sources(platform_pictures_test PRIVATE vips_images_test.cpp)
  target_link_libraries(platform_pictures_test PRIVATE PkgConfig::VIPS)
endif()
