set(banks_TEST_SOURCES
    bank_objects_test.cpp
    block_edges_test.cpp
    catalogue_test.cpp
    framework_test.cpp
    special_banks_test.cpp
    typed_other_test.cpp
    typed_pair_test.cpp)
