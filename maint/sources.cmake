set(maint_SOURCES
    lib_maint.cpp
    lib_maint_identity.cpp
    lib_maint_items.cpp
    lib_maint_not_yet.cpp
    lib_maint_numbers.cpp
    lib_maint_walks.cpp)
