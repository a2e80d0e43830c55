add_executable(rtf_bench rtf_bench.cpp)
target_link_libraries(rtf_bench PRIVATE zolt_platform)
add_executable(rich_text_bench rich_text_bench.cpp)
target_link_libraries(rich_text_bench PRIVATE zolt_platform Qt6::Test)
