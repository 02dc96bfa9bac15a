set(fit_TEST_SOURCES
    curve_fit_test.cpp
    forms_test.cpp
    recover_test.cpp)
