set(damage_TEST_SOURCES
    crafted_damage_test.cpp
    crash_test.cpp
    salvage_sweep_test.cpp
    whole_sweep_test.cpp)
