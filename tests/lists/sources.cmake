set(lists_TEST_SOURCES
    comp_list_build_test.cpp
    comp_list_test.cpp
    filter_test.cpp
    list_times_test.cpp
    search_order_test.cpp
    search_test.cpp
    sort_keys_test.cpp)
