# What makes a mistake harder to exploit, in everything that is built here: a watched stack, checked
# copies, programs at any address, tables that are filled at the start and read-only afterwards,
# no code in data and no data written into code.

add_compile_options(-fstack-protector-strong)
add_link_options(-Wl,-z,relro -Wl,-z,now -Wl,-z,noexecstack -Wl,-z,text)

# Checked copies need an optimised build.  Sanitizers check more by themselves, but not the
# functions that take the place of checked ones.
set(checked_copies 2)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 12)
  set(checked_copies 3)
endif()
if(NOT CIM_CLIENT_SANITIZE)
  add_compile_options(
    "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=${checked_copies}>")
endif()

# For what is added behind this: the libraries and programs that are installed.
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
