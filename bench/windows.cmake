add_executable(windows_bench ${CMAKE_CURRENT_LIST_DIR}/windows_bench.cpp)
target_link_libraries(windows_bench PRIVATE zolt_app Qt6::Test)
