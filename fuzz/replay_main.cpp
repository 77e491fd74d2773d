// Runs a fuzz target's entry point over files and folders of kept inputs, so that the normal
// build and ctest replay every input the fuzzer ever found.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

namespace fs = std::filesystem;

namespace {

bool replay(const fs::path &file)
{
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::fprintf(stderr, "cannot read %s\n", file.c_str());
        return false;
    }
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)),
                                  std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size());
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    int count = 0;
    bool ok = true;
    for (int i = 1; i < argc; ++i) {
        const fs::path path(argv[i]);
        if (fs::is_directory(path)) {
            for (const auto &entry : fs::recursive_directory_iterator(path)) {
                if (entry.is_regular_file()) {
                    ok = replay(entry.path()) && ok;
                    ++count;
                }
            }
        } else {
            ok = replay(path) && ok;
            ++count;
        }
    }
    std::printf("replayed %d inputs\n", count);
    return ok && count > 0 ? 0 : 1;
}
