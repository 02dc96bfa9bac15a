set(xml_TEST_SOURCES
    bad_documents_test.cpp
    document_memory_test.cpp
    document_test.cpp
    export_all_types_test.cpp
    export_component_test.cpp
    export_files_test.cpp
    export_items_test.cpp
    import_banks_test.cpp
    import_checks_test.cpp
    import_component_data_test.cpp
    import_component_reports_test.cpp
    import_component_units_test.cpp
    import_component_test.cpp
    import_include_test.cpp
    import_items_test.cpp
    import_limits_test.cpp
    import_text_test.cpp
    import_time_test.cpp
    import_walk_test.cpp
    progress_test.cpp
    round_trip_test.cpp
    unit_words_test.cpp
    xml_events_test.cpp)
# What only POSIX systems have.
if(NOT WIN32)
  list(APPEND xml_TEST_SOURCES ../frame/child.cpp import_memory_test.cpp import_stream_test.cpp)
endif()
