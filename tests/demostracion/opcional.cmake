# SPDX-License-Identifier: MIT
# Who builds the program alone needs neither the demonstration school nor what only it and the
# tests are built from. Arguments: FUENTES, the project; CARPETA, where to configure it.
function(configurar)
    execute_process(
        COMMAND ${CMAKE_COMMAND} -S ${FUENTES} -B ${CARPETA} -G Ninja -Wno-dev ${ARGN}
        RESULT_VARIABLE resultado OUTPUT_VARIABLE dicho ERROR_VARIABLE dicho)
    set(resultado ${resultado} PARENT_SCOPE)
    string(REGEX REPLACE "[ \n]+" " " dicho "${dicho}")
    set(dicho "${dicho}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${CARPETA})
configurar(-DPARVANEL_DEMO=OFF -DPARVANEL_TESTS=ON)
if(resultado EQUAL 0 OR NOT dicho MATCHES "PARVANEL_TESTS needs PARVANEL_DEMO")
    message(FATAL_ERROR "tests without the school they run against: ${dicho}")
endif()

file(REMOVE_RECURSE ${CARPETA})
configurar(-DPARVANEL_DEMO=OFF -DPARVANEL_TESTS=OFF
    -DCMAKE_DISABLE_FIND_PACKAGE_OpenSSL=ON -DCMAKE_DISABLE_FIND_PACKAGE_Qt6Test=ON)
if(NOT resultado EQUAL 0)
    message(FATAL_ERROR "the program without the school: ${dicho}")
endif()
execute_process(COMMAND ninja -C ${CARPETA} -t targets all OUTPUT_VARIABLE metas
    COMMAND_ERROR_IS_FATAL ANY)
foreach(programa parvanel parvanel-print parvanel-print-render)
    if(NOT metas MATCHES "(^|\n)bin/${programa}:")
        message(FATAL_ERROR "${programa} is not built")
    endif()
endforeach()
if(metas MATCHES "demo")
    message(FATAL_ERROR "something of the demonstration is built")
endif()
foreach(paquete OpenSSL_DIR OPENSSL_CRYPTO_LIBRARY PARVANEL_MUSTACHE PARVANEL_JQUERY Qt6Test_DIR)
    file(STRINGS ${CARPETA}/CMakeCache.txt hallado REGEX "^${paquete}(:|_)")
    if(hallado)
        message(FATAL_ERROR "looked for: ${hallado}")
    endif()
endforeach()
file(REMOVE_RECURSE ${CARPETA})
