set(verify_TEST_SOURCES
    catalogue_test.cpp
    constant_state_test.cpp
    data_check_banks_test.cpp
    data_check_libraries_test.cpp
    data_check_test.cpp
    gap_filling_test.cpp
    identity_test.cpp
    item_checks_test.cpp
    judge_constant_relations_test.cpp
    judge_curve_relations_test.cpp
    judge_diagnosis_test.cpp
    judge_kin_test.cpp
    judge_libraries_test.cpp
    judge_range_habits_test.cpp
    judge_relations_test.cpp
    judge_smooth_relations_test.cpp
    judge_thermal_relations_test.cpp
    progress_test.cpp
    salvage_blocks_test.cpp
    salvage_components_test.cpp
    salvage_fixture.cpp
    salvage_journal_test.cpp
    salvage_test.cpp
    verify_test.cpp)
# What only POSIX systems have.
if(NOT WIN32)
  list(APPEND verify_TEST_SOURCES open_library_test.cpp)
endif()
