set(maint_TEST_SOURCES
    bad_items_test.cpp
    banks_test.cpp
    check_test.cpp
    columns_test.cpp
    components_test.cpp
    current_item_test.cpp
    failed_write_test.cpp
    format_document_test.cpp
    items_test.cpp
    key_kinds_test.cpp
    located_again_test.cpp
    log_test.cpp
    maint_fixture.cpp
    numbers_test.cpp
    one_file_test.cpp
    pairs_test.cpp
    renumber_test.cpp
    text_dump_test.cpp
    two_objects_test.cpp
    walks_test.cpp)
# What only POSIX systems have.
if(NOT WIN32)
  list(APPEND maint_TEST_SOURCES posix_log_test.cpp)
endif()
