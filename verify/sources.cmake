set(verify_SOURCES
    block_claims.cpp
    catalogue.cpp
    composition.cpp
    constant_state.cpp
    identity.cpp
    tree_check.cpp
    verify_library.cpp)
