add_executable(rtf_bench rtf_bench.cpp)
target_link_libraries(rtf_bench PRIVATE zolt_platform)
