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
  if(CIM_CLIENT_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()
