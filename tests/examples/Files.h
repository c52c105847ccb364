#pragma once
#include <cstdio>
#include <fstream>
#include <string>

#if defined(_WIN32)
#    include <process.h>
#else
#    include <unistd.h>
#endif

/// A file of the test data.
inline std::string DataFile(std::string const& name)
{
    return std::string(EXAMPLES_DATA) + "/" + name;
}

/// A file that is removed with the object.
class ScratchFile {
public:
    explicit ScratchFile(std::string const& text, std::string const& suffix = "")
    {
        static int counter = 0;
        path = "examples_test_" + std::to_string(getpid()) + "_" + std::to_string(counter++) + suffix;
        std::ofstream(path, std::ios::binary) << text;
    }
    ScratchFile(ScratchFile const&) = delete;
    ScratchFile& operator=(ScratchFile const&) = delete;
    ~ScratchFile() { std::remove(path.c_str()); }

    std::string const& Path() const { return path; }

private:
    std::string path;
};
