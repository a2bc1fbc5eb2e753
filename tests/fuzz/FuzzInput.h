#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>

/// The fuzzer's bytes as the text that a tool or a person would have given.
inline QString textFrom(const std::uint8_t *bytes, std::size_t size)
{
    return QString::fromUtf8(reinterpret_cast<const char *>(bytes), static_cast<qsizetype>(size));
}

/// Names the rule that the input breaks and ends the run, upon which libFuzzer keeps the input.
inline void require(bool holds, const char *rule)
{
    if (holds)
        return;
    std::cerr << "Broken rule: " << rule << std::endl;
    std::abort();
}
