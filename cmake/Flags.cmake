# Compiler and linker flags: `ostvt_flags` for everything of ours, `ostvt_library_flags` for what goes into the module.
set(CMAKE_C_FLAGS_RELEASE "-O2 -DNDEBUG")
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG")
# Line tables are all that a sanitizer report needs; the rest takes nearly half of the build's time.
set(CMAKE_CXX_FLAGS_DEBUG "-g1")
set(CMAKE_CXX_FLAGS_RELWITHDEBINFO "-O2 -g1")
find_package(ZLIB REQUIRED)
add_library(ostvt_flags INTERFACE)
target_include_directories(ostvt_flags INTERFACE ${CMAKE_SOURCE_DIR}/src)
target_compile_options(ostvt_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Werror -fno-strict-aliasing)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 sees an overlap in every `"text" + std::string`, hence no -Wrestrict.
  target_compile_options(ostvt_flags INTERFACE
    -Wconversion -Wduplicated-cond -Wlogical-op -Wnon-virtual-dtor -Wno-restrict)
endif()
if(WIN32)
  target_compile_definitions(ostvt_flags INTERFACE UNICODE _UNICODE WINVER=0x0601 _WIN32_WINNT=0x0601)
  target_link_options(ostvt_flags INTERFACE -static -static-libgcc -static-libstdc++ -fstack-protector-strong)
endif()
if(OSTVT_SANITIZE)
  target_compile_options(ostvt_flags INTERFACE -fsanitize=${OSTVT_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(ostvt_flags INTERFACE -fsanitize=${OSTVT_SANITIZE})
endif()
if(OSTVT_FUZZ)
  target_compile_options(ostvt_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

add_library(ostvt_library_flags INTERFACE)
target_link_libraries(ostvt_library_flags INTERFACE ostvt_flags)
target_compile_options(ostvt_library_flags INTERFACE
  $<$<COMPILE_LANGUAGE:CXX>:-fno-exceptions -fno-rtti> -fstack-protector-strong -ffunction-sections -fdata-sections)
if(OSTVT_SANITIZE)
  target_compile_options(ostvt_library_flags INTERFACE -O1)
endif()
