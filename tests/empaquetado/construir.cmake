# SPDX-License-Identifier: MIT
execute_process(COMMAND ${CMAKE_COMMAND} --preset release -Wno-dev COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build --preset release COMMAND_ERROR_IS_FATAL ANY)
