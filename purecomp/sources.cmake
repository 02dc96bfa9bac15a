set(purecomp_SOURCES
    component.cpp
    equations.cpp
    fill_in.cpp
    formula.cpp
    record_read.cpp
    record_write.cpp)
