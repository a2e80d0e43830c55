add_executable(bench_export ${CMAKE_CURRENT_SOURCE_DIR}/export.cpp)
target_link_libraries(bench_export PRIVATE zolt_export)
