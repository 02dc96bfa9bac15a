set(lists_SOURCES
    lib_search.cpp)
