# The month-step benchmark; included from bench/CMakeLists.txt.
find_package(benchmark REQUIRED)
add_executable(month_step_bench ${CMAKE_CURRENT_LIST_DIR}/month_step_bench.cpp)
target_include_directories(month_step_bench PRIVATE ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(month_step_bench PRIVATE qlvcal_windows qlv_warnings Qt6::Test benchmark::benchmark)
