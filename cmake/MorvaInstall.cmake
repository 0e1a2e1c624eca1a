# SPDX-License-Identifier: GPL-3.0-or-later
# What `cmake --install` lays down: both programs, the inference runtime and the models beside them, and what a
# desktop needs to show and start the window, the manual pages and what completes commands in a shell.
set(CMAKE_INSTALL_DOCDIR share/doc/morva)
include(GNUInstallDirs)

install(TARGETS morva morva-cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
# The programs look for both relative to themselves.
set(runtime "")
foreach(library libopenvino.so.2641 libopenvino_intel_cpu_plugin.so libopenvino_ir_frontend.so.2641
        libopenvino_onnx_frontend.so.2641 libopenvino_tensorflow_lite_frontend.so.2641 libtbb.so.12)
    list(APPEND runtime ${MORVA_RUNTIME_LIBS}/${library})
endforeach()
# One folder deeper than the libraries that a linker searches, so that no package asks for its cache to be renewed.
install(FILES ${runtime} DESTINATION lib/morva/runtime)
install(DIRECTORY ${MORVA_DEPS}/models/ DESTINATION ${CMAKE_INSTALL_DATADIR}/morva/models)

set(id org.morva.Morva)
set(packaging ${CMAKE_SOURCE_DIR}/packaging)
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${packaging}/${id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/${id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${packaging}/${id}.svg DESTINATION ${icons}/scalable/apps)
install(FILES ${packaging}/${id}-symbolic.svg DESTINATION ${icons}/symbolic/apps)
install(FILES README.md THIRD_PARTY.md LICENSE ${packaging}/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${packaging}/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME morva)

set(completions ${packaging}/completions)
install(FILES ${completions}/morva-cli.bash DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME morva-cli)
install(FILES ${completions}/_morva-cli DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/vendor-completions)
install(FILES ${completions}/morva-cli.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

# Debian wants these compressed, without a time in them.
find_program(GZIP gzip REQUIRED)
set(compressed "")
function(compress source name folder)
    set(result ${CMAKE_BINARY_DIR}/compressed/${name}.gz)
    add_custom_command(OUTPUT ${result} COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/compressed
        COMMAND ${GZIP} -9nc ${source} > ${result} DEPENDS ${source} VERBATIM)
    install(FILES ${result} DESTINATION ${folder})
    set(compressed ${compressed} ${result} PARENT_SCOPE)
endfunction()
compress(${packaging}/man/morva.1 morva.1 ${CMAKE_INSTALL_MANDIR}/man1)
compress(${packaging}/man/morva-cli.1 morva-cli.1 ${CMAKE_INSTALL_MANDIR}/man1)
compress(${packaging}/changelog changelog ${CMAKE_INSTALL_DOCDIR})
add_custom_target(compressed_documents ALL DEPENDS ${compressed})
