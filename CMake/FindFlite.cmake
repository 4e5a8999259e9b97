# Flite and its US English voice slt, which bring no description of themselves: Flite::slt.
find_path(Flite_INCLUDE_DIR flite/flite.h)
set(Flite_LIBRARIES)
foreach(part cmu_us_slt usenglish cmulex)
    find_library(Flite_${part}_LIBRARY flite_${part})
    list(APPEND Flite_LIBRARIES ${Flite_${part}_LIBRARY})
endforeach()
find_library(Flite_LIBRARY flite)
list(APPEND Flite_LIBRARIES ${Flite_LIBRARY})

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Flite REQUIRED_VARS
    Flite_LIBRARY Flite_cmu_us_slt_LIBRARY Flite_usenglish_LIBRARY Flite_cmulex_LIBRARY Flite_INCLUDE_DIR)

if(Flite_FOUND AND NOT TARGET Flite::slt)
    add_library(Flite::slt INTERFACE IMPORTED)
    target_include_directories(Flite::slt SYSTEM INTERFACE ${Flite_INCLUDE_DIR})
    target_link_libraries(Flite::slt INTERFACE ${Flite_LIBRARIES} m)
endif()
