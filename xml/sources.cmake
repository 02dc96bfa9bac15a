set(xml_SOURCES
    lib_maint_export.cpp
    lib_maint_import.cpp)
