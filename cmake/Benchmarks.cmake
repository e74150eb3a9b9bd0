# Natively Google Benchmark on the machine in memory; on Windows the shred engine alone, for bench/compare_shred.sh.
if(WIN32)
  room_executable(shred_file LINK win32_machine SOURCES bench/win32)
else()
  find_package(benchmark REQUIRED)
  room_executable(scrubhaven_bench LINK memory_machine benchmark::benchmark_main SOURCES bench)
endif()
