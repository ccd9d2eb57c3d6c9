# What every target of the project is compiled with.
#
# -ffp-contract=off: a fused multiply-add rounds once where the formula rounds twice, so the same
# track would rank differently on another machine. -fno-math-errno and -fno-trapping-math only spare the
# errno and exception-flag bookkeeping of sqrt, floor and friends; they change no result.
add_library(kestrabel_options INTERFACE)
target_compile_features(kestrabel_options INTERFACE cxx_std_20)
target_include_directories(kestrabel_options INTERFACE "${PROJECT_SOURCE_DIR}/src")
target_compile_options(kestrabel_options INTERFACE
  -ffp-contract=off -fno-math-errno -fno-trapping-math
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wold-style-cast -Wnon-virtual-dtor
  -Wdouble-promotion -Werror)

if(KESTRABEL_SANITIZE)
  target_compile_options(kestrabel_options INTERFACE
    -fsanitize=address,undefined,float-cast-overflow -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(kestrabel_options INTERFACE -fsanitize=address,undefined,float-cast-overflow)
endif()

if(KESTRABEL_FUZZERS)
  # So that the fuzzers see which branches an input reaches.
  target_compile_options(kestrabel_options INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(kestrabel_options INTERFACE -fsanitize=fuzzer-no-link)
endif()

# One folder of src/ as a library that may include, and links, only the folders named after it.
function(kestrabel_folder name)
  cmake_parse_arguments(ARG "" "" "SOURCES;USES;LIBRARIES" ${ARGN})
  add_library(kestrabel_${name} STATIC ${ARG_SOURCES})
  list(TRANSFORM ARG_USES PREPEND kestrabel_)
  target_link_libraries(kestrabel_${name} PUBLIC kestrabel_options ${ARG_USES} PRIVATE ${ARG_LIBRARIES})
endfunction()
