# SPDX-License-Identifier: GPL-3.0-or-later
# What `cmake --install` lays down: both programs, the inference runtime and the models beside them, and what a
# desktop needs to show and start the window.
include(GNUInstallDirs)

install(TARGETS morva morva-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The programs look for both relative to themselves.
set(runtime "")
foreach(library libopenvino.so.2641 libopenvino_intel_cpu_plugin.so libopenvino_ir_frontend.so.2641
        libopenvino_onnx_frontend.so.2641 libopenvino_tensorflow_lite_frontend.so.2641 libtbb.so.12)
    list(APPEND runtime ${MORVA_RUNTIME_LIBS}/${library})
endforeach()
install(FILES ${runtime} DESTINATION lib/morva)
install(DIRECTORY ${MORVA_DEPS}/models/ DESTINATION ${CMAKE_INSTALL_DATADIR}/morva/models)

set(id org.morva.Morva)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${packaging}/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${packaging}/${id}.svg DESTINATION ${icons}/scalable/apps)
install(FILES ${packaging}/${id}-symbolic.svg DESTINATION ${icons}/symbolic/apps)
install(FILES README.md THIRD_PARTY.md LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})
