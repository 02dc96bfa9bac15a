set(store_TEST_SOURCES
    btree_damage_test.cpp
    btree_dump_test.cpp
    btree_limits_test.cpp
    btree_model_test.cpp
    btree_rebuild_test.cpp
    btree_structure_test.cpp
    btree_test.cpp
    casn_test.cpp
    extents_test.cpp
    held_crash_test.cpp
    held_writes_test.cpp
    journal_test.cpp
    key_resolve_test.cpp
    key_test.cpp
    lib_file_blocks_test.cpp
    lib_file_bounds_test.cpp
    lib_file_life_test.cpp
    lib_file_open_test.cpp
    lib_file_test.cpp
    mark_test.cpp
    packed_text_test.cpp
    robustness_test.cpp)
# What only POSIX systems have.
if(NOT WIN32)
  list(APPEND store_TEST_SOURCES sharing_test.cpp)
endif()
