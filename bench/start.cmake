add_executable(start_bench ${CMAKE_CURRENT_LIST_DIR}/start_bench.cpp)
target_link_libraries(start_bench PRIVATE zolt_app)
