set(support_SOURCES
    memory_file_system.cpp)
