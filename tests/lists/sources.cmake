set(lists_TEST_SOURCES
    search_test.cpp)
