set(support_SOURCES
    extent_model.cpp
    failing_file_system.cpp
    memory_file_system.cpp
    tree_model.cpp)
