# KELVALR_SANITIZER ("address,undefined", "thread") applies to every target of the build.
if(KELVALR_SANITIZER)
    add_compile_options(-fsanitize=${KELVALR_SANITIZER} -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${KELVALR_SANITIZER})
    # The vptr check needs the type information of every Qt class, which Qt's plug-ins do not export.
    if(KELVALR_SANITIZER MATCHES "undefined")
        add_compile_options(-fno-sanitize=vptr)
    endif()
endif()
if(KELVALR_BUILD_FUZZERS)
    # Coverage for the code under test; the fuzzers themselves link the driver.
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
