set(zel_TEST_SOURCES commands_test.cpp zel_fixture.cpp)
