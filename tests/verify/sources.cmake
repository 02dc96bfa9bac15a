set(verify_TEST_SOURCES
    catalogue_test.cpp
    constant_state_test.cpp
    identity_test.cpp
    verify_test.cpp)
