set(support_SOURCES
    allocations.cpp
    extent_model.cpp
    failing_file_system.cpp
    formula_model.cpp
    memory_file_system.cpp
    sample_component.cpp
    tree_model.cpp)
