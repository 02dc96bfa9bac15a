set(lists_SOURCES
    comp_list.cpp
    comp_list_build.cpp
    lib_search.cpp
    list_file.cpp
    list_filter.cpp
    sort_keys.cpp)
