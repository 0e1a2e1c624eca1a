# SPDX-License-Identifier: GPL-3.0-or-later
# The libraries the program calls; all are system headers, so that only our own code is warned about.

set(MORVA_DEPS ${CMAKE_SOURCE_DIR}/deps CACHE PATH "Folder filled by script/bootstrap")
if(NOT EXISTS ${MORVA_DEPS}/complete)
    message(FATAL_ERROR "deps/ is missing or incomplete. Run script/bootstrap first.")
endif()

find_package(PkgConfig REQUIRED)
pkg_check_modules(VIPS REQUIRED IMPORTED_TARGET vips)
pkg_check_modules(EXIV2 REQUIRED IMPORTED_TARGET exiv2)
pkg_check_modules(ZIMG REQUIRED IMPORTED_TARGET zimg)
pkg_check_modules(JPEG REQUIRED IMPORTED_TARGET libjpeg)
pkg_check_modules(LCMS REQUIRED IMPORTED_TARGET lcms2)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)  # of the benchmarks
# Found by hand: the package file of OpenCV comes only with all of its modules and their hundred dependencies.
find_path(OPENCV_INCLUDE opencv2/core.hpp PATH_SUFFIXES opencv4 REQUIRED)
foreach(module core imgproc)
    find_library(OPENCV_${module} opencv_${module} REQUIRED)
    add_library(opencv_${module} INTERFACE IMPORTED)
    target_include_directories(opencv_${module} SYSTEM INTERFACE ${OPENCV_INCLUDE})
    target_link_libraries(opencv_${module} INTERFACE ${OPENCV_${module}})
endforeach()
find_package(Eigen3 3.4 REQUIRED NO_MODULE)
find_package(nlohmann_json 3.11 REQUIRED)
find_package(tl-expected REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core DBus Gui Widgets Svg Test LinguistTools)
find_package(CLI11 2.1 REQUIRED)
find_package(GTest 1.12 REQUIRED)
find_package(benchmark REQUIRED)
find_package(OpenVINO REQUIRED PATHS ${MORVA_DEPS}/openvino/openvino/cmake NO_DEFAULT_PATH)

# The inference runtime brings its own TBB and the image libraries link the system's, under one name. A run path
# of the old kind (it also serves libraries of libraries) makes every one of them find the runtime's.
set(MORVA_RUNTIME_LIBS ${MORVA_DEPS}/openvino/openvino/libs)
add_link_options(-Wl,--disable-new-dtags)
set(CMAKE_BUILD_RPATH ${MORVA_RUNTIME_LIBS})
set(CMAKE_INSTALL_RPATH $ORIGIN/../lib/morva/runtime)
