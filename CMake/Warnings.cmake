# kelvalr_warnings: linked privately by every target of ours, so that headers of others stay out of it.
add_library(kelvalr_warnings INTERFACE)
target_compile_options(kelvalr_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor -Wold-style-cast
    -Woverloaded-virtual -Wimplicit-fallthrough -Wunused
    # A field left out of a designated initialiser means its default.
    -Wno-missing-designated-field-initializers)
target_compile_definitions(kelvalr_warnings INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY QT_NO_FOREACH QT_NO_KEYWORDS
    QT_STRICT_ITERATORS QT_USE_QSTRINGBUILDER QT_DISABLE_DEPRECATED_BEFORE=0x060400)
