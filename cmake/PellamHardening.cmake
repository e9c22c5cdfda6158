# What Debian's dpkg-buildflags (hardening=+all) asks of a program, and object files that don't tell where they
# were built. For the package; the other presets keep the compiler's own.

include(CheckCXXCompilerFlag)
include(CheckPIESupported)

check_pie_supported(LANGUAGES CXX)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
add_compile_options(-fstack-protector-strong -Wformat -Werror=format-security -Wdate-time
                    -ffile-prefix-map=${PROJECT_BINARY_DIR}=build -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
# The compiler may have a level of its own; some warn when it is changed.
add_compile_options(-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
foreach(flag -fstack-clash-protection -fcf-protection)
  string(MAKE_C_IDENTIFIER "PELLAM_HAS${flag}" known)
  check_cxx_compiler_flag(${flag} ${known})
  if(${known})
    add_compile_options(${flag})
  endif()
endforeach()
add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,--as-needed)
