set(purecomp_TEST_SOURCES
    formula_model_test.cpp
    formula_order_test.cpp
    formula_test.cpp)
