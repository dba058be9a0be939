# Debian packages: `cpack -G DEB` in a build folder makes
#   liborvengine<major>     the library and its media
#   liborvengine-dev        headers, CMake package, pkg-config file, orvpack, orvmedia
set(CPACK_PACKAGE_NAME orvengine)
set(CPACK_PACKAGE_VENDOR "OrvEngine developers")
set(CPACK_PACKAGE_CONTACT "OrvEngine developers <orvengine@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "2D/3D game engine: window, input, rendering, sound, sprites and widgets")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_COMPONENTS_ALL Runtime Development)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)

set(ORV_RUNTIME_PACKAGE liborvengine${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${ORV_RUNTIME_PACKAGE})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS
  "libc6, libstdc++6, libgcc-s1, libsdl1.2debian, libgl1, libopenal1, zlib1g")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "OrvEngine game engine: the shared library and its media")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME liborvengine-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(ORV_DEV_DEPENDS "${ORV_RUNTIME_PACKAGE} (= ${PROJECT_VERSION})")
if(ORV_BUILD_TOOLS)
  # orvmedia rasterises fonts with FreeType; games make their bitmap fonts from DejaVu.
  string(APPEND ORV_DEV_DEPENDS ", libfreetype6")
  set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_RECOMMENDS "fonts-dejavu-core, cmake, g++")
endif()
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${ORV_DEV_DEPENDS}")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "OrvEngine game engine: headers, CMake package, pkg-config file and media tools")

include(CPack)
