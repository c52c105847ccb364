#include "oracle/Registry.h"

#include <algorithm>
#include <cstring>

namespace oracle {

namespace {

std::uint64_t Key(std::string const& text)
{
    std::uint64_t key = 0xcbf29ce484222325u;
    for (char const c : text)
        key = (key ^ static_cast<unsigned char>(c)) * 0x100000001b3u;
    return key;
}

} // namespace

Slips slips;

bool Slips::Asked(char const* name)
{
    if (made)
        return std::strcmp(name, made) == 0;
    if (std::find(listed.begin(), listed.end(), name) == listed.end())
        listed.emplace_back(name);
    return false;
}

Operation::Operation(std::string operationName) : name(std::move(operationName)), key(Key(name)) {}

std::vector<std::unique_ptr<Operation>>& Operations()
{
    static std::vector<std::unique_ptr<Operation>> operations;
    return operations;
}

} // namespace oracle
