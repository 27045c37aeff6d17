# One interface target carries what every target of ours is compiled with.
add_library(quillon_options INTERFACE)
target_compile_options(quillon_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion
                                                 $<$<BOOL:${QUILLON_WERROR}>:-Werror>)
target_compile_definitions(
    quillon_options
    INTERFACE QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_URL_CAST_FROM_STRING
              QT_NO_KEYWORDS QT_USE_QSTRINGBUILDER
              # What Qt up to 6.8 calls deprecated is an error with each Qt that knows of it.
              QT_DISABLE_DEPRECATED_BEFORE=0x060800)
if(CMAKE_UNITY_BUILD)
    # What a source keeps to itself lies in an included file then.
    target_compile_options(quillon_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-subobject-linkage>)
endif()
if(QUILLON_SANITIZE)
    # GCC loses track of initialisations in instrumented code; the plain builds keep this warning.
    target_compile_options(quillon_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
    target_compile_options(quillon_options INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=all
                                                     -fno-omit-frame-pointer)
    target_link_options(quillon_options INTERFACE -fsanitize=address,undefined)
endif()
