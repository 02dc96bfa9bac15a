set(verify_SOURCES
    block_claims.cpp
    catalogue.cpp
    tree_check.cpp
    verify_library.cpp)
