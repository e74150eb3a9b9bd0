find_package(benchmark REQUIRED)
room_executable(scrubhaven_bench LINK memory_machine benchmark::benchmark_main SOURCES bench)
