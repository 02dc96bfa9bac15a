set(support_SOURCES
    allocations.cpp
    crash_file_system.cpp
    crash_trial.cpp
    damage.cpp
    extent_model.cpp
    failing_file_system.cpp
    formula_model.cpp
    item_session.cpp
    memory_file_system.cpp
    sample_component.cpp
    sample_library.cpp
    stored_items.cpp
    tree_model.cpp)
if(WIN32)
  list(APPEND support_SOURCES windows_environment.cpp)
else()
  list(APPEND support_SOURCES posix_environment.cpp)
endif()
