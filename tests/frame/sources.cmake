set(frame_TEST_SOURCES
    block_file_test.cpp
    folders_test.cpp
    number_text_test.cpp
    trim7_test.cpp)
