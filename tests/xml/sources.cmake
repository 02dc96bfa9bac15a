set(xml_TEST_SOURCES
    document_test.cpp
    import_banks_test.cpp
    import_items_test.cpp
    import_text_test.cpp
    import_walk_test.cpp)
