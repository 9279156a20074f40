// SPDX-License-Identifier: GPL-3.0-or-later

// Runs a fuzz target over the files of a folder, for compilers without a fuzzer: each file as it is, each of its beginnings, and some
// changes of single bytes.

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t MaxVariants = 512;

void run(const Bytes &bytes)
{
    // A copy of exactly that size, so that a sanitizer sees reads beyond the end.
    const Bytes exact(bytes);
    LLVMFuzzerTestOneInput(exact.data(), exact.size());
}

void runVariants(const Bytes &bytes)
{
    run(bytes);
    const std::size_t step = bytes.size() / MaxVariants + 1;
    for (std::size_t i = 0; i < bytes.size(); i += step) {
        run(Bytes(bytes.begin(), bytes.begin() + std::ptrdiff_t(i)));
        for (const int change : {0x01, 0x80, 0xFF}) {
            Bytes changed = bytes;
            changed[i] = std::uint8_t(changed[i] ^ change);
            run(changed);
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 2)
        return 2;
    int files = 0;
    for (const auto &entry : std::filesystem::directory_iterator(argv[1])) {
        if (!entry.is_regular_file())
            continue;
        std::ifstream file(entry.path(), std::ios::binary);
        const Bytes bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
        runVariants(bytes);
        ++files;
    }
    std::printf("%d files\n", files);
    // An empty corpus is a mistake of the build, not a success.
    return files > 0 ? 0 : 1;
}
