# One static library per folder. A library's own folder is its only public include root, and it hands on just the roots
# of what it links: a file that includes something from a higher floor does not compile. PRIVATE_INCLUDES are folders
# that the library alone can include from.

add_library(kalvenor_flags INTERFACE)
target_compile_options(kalvenor_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual $<$<BOOL:${KALVENOR_WERROR}>:-Werror>)
target_compile_definitions(kalvenor_flags INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_CONTEXTLESS_CONNECT QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER
    QT_DISABLE_DEPRECATED_BEFORE=0x060400 _FILE_OFFSET_BITS=64 KALVENOR_VERSION="${PROJECT_VERSION}")
if(KALVENOR_HARDENING AND NOT WIN32)
    # _FORTIFY_SOURCE needs the optimizer and hides faults from the sanitizers.
    target_compile_options(kalvenor_flags INTERFACE -fstack-protector-strong -fstack-clash-protection
        $<$<CONFIG:Release>:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
    target_compile_definitions(kalvenor_flags INTERFACE _GLIBCXX_ASSERTIONS)
    target_link_options(kalvenor_flags INTERFACE -pie -Wl,-z,relro,-z,now,-z,noexecstack)
endif()
if(KALVENOR_SANITIZE)
    target_compile_options(kalvenor_flags INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kalvenor_flags INTERFACE -fsanitize=address,undefined)
endif()
if(KALVENOR_FUZZ)
    target_compile_options(kalvenor_flags INTERFACE
        -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_link_options(kalvenor_flags INTERFACE -fsanitize=address,undefined)
endif()

function(kalvenor_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS;INCLUDES;PRIVATE_INCLUDES")
    add_library(${name} STATIC ${arg_SOURCES})
    target_include_directories(${name} PUBLIC ${CMAKE_CURRENT_SOURCE_DIR} ${arg_INCLUDES} PRIVATE ${arg_PRIVATE_INCLUDES})
    target_link_libraries(${name} PUBLIC ${arg_LINKS} PRIVATE kalvenor_flags)
endfunction()
