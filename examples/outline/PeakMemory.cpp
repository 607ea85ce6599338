#include "PeakMemory.h"

#include <fstream>
#include <string>

std::optional<std::uint64_t> peakMemory() {
    std::ifstream status("/proc/self/status");
    std::string key;
    while (status >> key) {
        std::uint64_t kilobytes = 0;
        if (key == "VmHWM:" && status >> kilobytes) {
            return kilobytes * 1024;
        }
        std::getline(status, key);
    }
    return std::nullopt;
}
