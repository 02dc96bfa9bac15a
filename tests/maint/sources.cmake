set(maint_TEST_SOURCES
    banks_test.cpp
    format_document_test.cpp
    items_test.cpp
    maint_fixture.cpp
    numbers_test.cpp
    pairs_test.cpp
    walks_test.cpp)
