# What holds for every target of this project: language versions, warnings, visibility.

# Applies the house rules to `target`.
function(cim_own_code target)
  target_compile_features(${target} PRIVATE cxx_std_20 c_std_99)
  set_target_properties(${target} PROPERTIES
    CXX_EXTENSIONS OFF
    C_EXTENSIONS OFF
    CXX_VISIBILITY_PRESET hidden
    C_VISIBILITY_PRESET hidden
    VISIBILITY_INLINES_HIDDEN ON)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wconversion -Wshadow)
  # gcc 12 sees overlapping copies in std::string where there are none.
  target_compile_options(${target} PRIVATE $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wno-restrict>)
  # What is shipped holds no paths of the machine that built it.
  set(maps -ffile-prefix-map=${PROJECT_BINARY_DIR}=build -ffile-prefix-map=${PROJECT_SOURCE_DIR}=.)
  target_compile_options(${target} PRIVATE
    "$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:${maps}>")
  if(CIM_CLIENT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
