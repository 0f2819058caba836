# Flags that every target of the project is built with, as the interface target orvane_compile_options.

add_library(orvane_compile_options INTERFACE)
target_compile_options(orvane_compile_options INTERFACE
  -Wall -Wextra -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
  # Filter results are exact: products and sums are rounded one by one, in the stated order.
  -ffp-contract=off)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 sees overlapping copies in plain string concatenation.
  target_compile_options(orvane_compile_options INTERFACE -Wno-restrict)
endif()
if(ORVANE_WERROR)
  target_compile_options(orvane_compile_options INTERFACE -Werror)
endif()
if(ORVANE_SANITIZE)
  target_compile_options(orvane_compile_options INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer -O1)
  target_link_options(orvane_compile_options INTERFACE -fsanitize=address,undefined)
endif()
if(ORVANE_BUILD_FUZZERS)
  # Coverage for libFuzzer, without its main function.
  target_compile_options(orvane_compile_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
