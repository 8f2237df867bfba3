// The whole import with the reference host, without writing the picture:
//     plexorn_bench_host FILE
// The stage is timed apart from plexorn_bench because both bring a host of their own.
#include "bench/PeakMemory.h"
#include "entry/dxfFileOpen.h"
#include "svghost/SvgHost.h"

#include <chrono>
#include <cstdio>
#include <cstring>
#include <string>

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: plexorn_bench_host FILE\n");
        return 1;
    }
    SvgHostDocument* const document = svgHostCreate();
    const std::wstring path(argv[1], argv[1] + std::strlen(argv[1]));
    const auto start = std::chrono::steady_clock::now();
    dxfFileOpen(path.c_str(), svgHostBeginImport(document));
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    SvgHostStatistics statistics;
    if (!svgHostGetStatistics(document, &statistics) || statistics.elements == 0) {
        std::fprintf(stderr, "plexorn_bench_host: nothing was drawn\n");
        return 1;
    }
    std::printf("host answer %zu seconds %.4f peak %zu\n", statistics.elements, seconds.count(),
                PeakMemory());
    svgHostDestroy(document);
    return 0;
}
