# Fused multiply-add would change the last bits of the harmony points: off everywhere.
add_compile_options(-ffp-contract=off -Wall -Wextra -Wpedantic)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # A unique symbol would keep the module mapped after dlclose.
  add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-fno-gnu-unique>)
endif()
if(CHROMALOG_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
