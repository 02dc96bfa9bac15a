set(verify_TEST_SOURCES
    catalogue_test.cpp
    constant_state_test.cpp
    data_check_banks_test.cpp
    data_check_libraries_test.cpp
    data_check_test.cpp
    identity_test.cpp
    verify_test.cpp)
