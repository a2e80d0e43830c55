add_executable(text_pane_bench text_pane_bench.cpp)
target_link_libraries(text_pane_bench PRIVATE zolt_app Qt6::Test)
