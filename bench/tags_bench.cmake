# Tag readers against TagLib reading the same files. TagLib is a reference
# for this benchmark only and is never linked into the product.
find_package(PkgConfig REQUIRED)
pkg_check_modules(TAGLIB REQUIRED IMPORTED_TARGET taglib)
add_executable(tags_bench tags_bench.cpp tags_bench_corpus.cpp tags_bench_corpus.h median_reporter.h)
target_link_libraries(tags_bench PRIVATE zelvor_core benchmark::benchmark PkgConfig::TAGLIB)
target_compile_definitions(tags_bench PRIVATE
  ZELVOR_BENCH_MEDIA_DIR="${CMAKE_CURRENT_BINARY_DIR}/tags_media")
zelvor_warnings(tags_bench)

# The error of the AAC reader's frame estimate on large files.
add_executable(tags_aac_estimate tags_aac_estimate.cpp)
target_link_libraries(tags_aac_estimate PRIVATE zelvor_core)
target_compile_definitions(tags_aac_estimate PRIVATE
  ZELVOR_BENCH_MEDIA_DIR="${CMAKE_CURRENT_BINARY_DIR}/tags_media")
zelvor_warnings(tags_aac_estimate)
