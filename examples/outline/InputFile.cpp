#include "InputFile.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t pieceSize = 1 << 16;

[[noreturn]] void fail(const std::string& reason) {
    throw std::runtime_error(reason);
}

// Only a regular file tells its size before it is read; for all others one piece to begin with.
std::size_t expectedSize(const std::string& name) {
    std::error_code error;
    if (fs::is_directory(name, error)) {
        fail("is a directory");
    }
    const auto size = fs::file_size(name, error);
    return error ? pieceSize : static_cast<std::size_t>(size) + 1;
}

}  // namespace

std::string readInput(const std::string& name) {
    std::string bytes(expectedSize(name), '\0');
    errno = 0;
    std::ifstream file(name, std::ios::binary);
    if (!file) {
        fail(errno == 0 ? "can't be opened" : std::generic_category().message(errno));
    }
    std::size_t length = 0;
    while (file.read(&bytes[length], static_cast<std::streamsize>(bytes.size() - length))) {
        length = bytes.size();
        bytes.resize(length * 2);
    }
    if (file.bad()) {
        fail("can't be read");
    }
    bytes.resize(length + static_cast<std::size_t>(file.gcount()));
    return bytes;
}
