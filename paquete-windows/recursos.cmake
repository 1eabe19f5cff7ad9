# SPDX-License-Identifier: MIT
# What Windows reads out of a program's file: its icon, its version, and what it asks of Windows.
find_program(PARVANEL_ICOTOOL icotool REQUIRED)

# An icon's file out of a drawing. The sizes that Windows asks for at each scale; the large ones as
# they are, since older dialogs know the small ones in their first form only.
function(parvanel_ico dibujo archivo)
    cmake_path(ABSOLUTE_PATH dibujo)
    set(imagenes)
    set(argumentos)
    foreach(lado 16 20 24 32 40 48 64 128 256)
        set(imagen ${archivo}-${lado}x${lado}.png)
        list(APPEND imagenes ${imagen})
        if(lado GREATER 48)
            list(APPEND argumentos --raw=${imagen})
        else()
            list(APPEND argumentos ${imagen})
        endif()
    endforeach()
    add_custom_command(OUTPUT ${archivo}
        BYPRODUCTS ${imagenes}
        COMMAND ${PARVANEL_DIBUJAR_MARCA} ${dibujo} ${imagenes}
        COMMAND ${PARVANEL_ICOTOOL} --create --output=${archivo} ${argumentos}
        DEPENDS ${PARVANEL_DIBUJAR_MARCA} ${dibujo}
        COMMENT "Drawing ${archivo}")
endfunction()

# `descripcion`, in Spanish, is what Windows calls the program by; `dibujo` is a square drawing.
# CON_VENTANA_SOLA: of a program for the console that may be a window alone, no console is opened
# for it (by a Windows that knows how; it closes the console itself on others).
function(parvanel_recursos programa descripcion dibujo)
    cmake_parse_arguments(ARG "CON_VENTANA_SOLA" "" "" ${ARGN})
    set(icono ${CMAKE_CURRENT_BINARY_DIR}/${programa}.ico)
    set(manifiesto ${CMAKE_CURRENT_BINARY_DIR}/${programa}.manifest)
    set(guion ${CMAKE_CURRENT_BINARY_DIR}/${programa}.rc)
    string(REPLACE "." "," numeros "${PROJECT_VERSION}.0")
    set(consola "")
    if(ARG_CON_VENTANA_SOLA)
        set(consola "      <consoleAllocationPolicy xmlns=\"http://schemas.microsoft.com/SMI/2024/WindowsSettings\">detached</consoleAllocationPolicy>\n")
    endif()
    set(de ${PROJECT_SOURCE_DIR}/paquete-windows)
    parvanel_ico(${dibujo} ${icono})
    configure_file(${de}/parvanel.manifest.in ${manifiesto} @ONLY NEWLINE_STYLE LF)
    configure_file(${de}/parvanel.rc.in ${guion} @ONLY NEWLINE_STYLE LF)
    set_source_files_properties(${guion} PROPERTIES
        OBJECT_DEPENDS "${icono};${manifiesto}"
        COMPILE_OPTIONS "--codepage=65001")
    target_sources(${programa} PRIVATE ${guion})
endfunction()
