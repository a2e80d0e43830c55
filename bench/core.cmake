add_executable(core_bench core_bench.cpp)
target_link_libraries(core_bench PRIVATE zolt_hp48)
