set(zel_TEST_SOURCES
    bad_input_test.cpp
    change_test.cpp
    commands_test.cpp
    documents_test.cpp
    maintenance_test.cpp
    sense_test.cpp
    zel_fixture.cpp)
