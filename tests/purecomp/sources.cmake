set(purecomp_TEST_SOURCES
    fill_in_atoms_test.cpp
    fill_in_correlations_test.cpp
    fill_in_real_test.cpp
    fill_in_test.cpp
    formula_model_test.cpp
    formula_order_test.cpp
    formula_test.cpp)
