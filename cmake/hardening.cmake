# SPDX-License-Identifier: MIT
# Hardening against exploits. The linker makes programs position independent if the code is.
include(CheckPIESupported)
check_pie_supported()

if(NOT CORVANE_SANITIZE)
  add_compile_options(-fstack-protector-strong -fstack-clash-protection)
  if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
    add_compile_options(-fcf-protection=full)
  endif()
  # _FORTIFY_SOURCE needs optimisation. Some distributions set a lower level.
  add_compile_options($<$<NOT:$<CONFIG:Debug>>:-U_FORTIFY_SOURCE>
                      $<$<NOT:$<CONFIG:Debug>>:-D_FORTIFY_SOURCE=3>)
  add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack)
endif()
