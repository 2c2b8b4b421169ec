#include "bench/TestFiles.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <numeric>
#include <random>
#include <stdexcept>
#include <vector>

#include "framework/Handles.h"

namespace nux::bench {
namespace {

std::string testFolder;

constexpr char declaration[] = "<?xml version=\"1.0\" encoding=\"windows-1252\"?>\n";

std::string Numbered(const char* format, std::size_t i) {
    char buffer[96];
    std::snprintf(buffer, sizeof buffer, format, static_cast<unsigned>(i));
    return buffer;
}

}  // namespace

void SetTestFolder(const std::string& folder) {
    testFolder = folder;
}

std::string TestPath(const std::string& name) {
    return testFolder + name;
}

std::string TestUrl(const std::string& name) {
    return "file://" + TestPath(name);
}

void MakeFolder(const std::string& name) {
    if (!CreateDirectoryA(TestPath(name).c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS)
        throw std::runtime_error("can't make the folder " + TestPath(name));
}

void WriteFile(const std::string& name, const std::string& text) {
    const UniqueFile file(CreateFileA(TestPath(name).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                      FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    if (!file || !::WriteFile(file.Get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) ||
        written != text.size())
        throw std::runtime_error("can't write " + TestPath(name));
}

std::string MessageId(std::size_t i) {
    return Numbered("Guide pillar with shoulder %06u", i);
}

std::string Translation(std::size_t i) {
    return Numbered("F\xFChrungss\xE4ule mit Bund %06u", i);
}

std::string MessageFile(std::size_t entries, bool shuffled) {
    std::vector<std::size_t> order(entries);
    std::iota(order.begin(), order.end(), 0);
    if (shuffled)
        std::shuffle(order.begin(), order.end(), std::mt19937(20));
    std::string file = declaration;
    file += "<Messages>\n";
    for (const std::size_t i : order)
        file += "  <MsgID>" + MessageId(i) + "</MsgID>\n  <Text>" + Translation(i) + "</Text>\n";
    return file + "</Messages>\n";
}

std::string PartId(std::size_t i) {
    return Numbered("GP%05u", i);
}

std::string CatalogueFile(std::size_t parts, const std::string& more) {
    std::string file = declaration;
    file += "<Catalog>\n";
    for (std::size_t i = 0; i < parts; ++i) {
        if (i % 100 == 0)
            file += "<Folder><Name>" + Numbered("Series %u", i / 100) + "</Name>\n";
        file += "  <Part><ID>" + PartId(i) + "</ID><Name>" + MessageId(i) + "</Name>" + more + "</Part>\n";
        if (i % 100 == 99 || i + 1 == parts)
            file += "</Folder>\n";
    }
    return file + "</Catalog>\n";
}

std::string PartKind(std::size_t i) {
    return Numbered("Guide pillar, kind %02u", i % partKinds);
}

SizeFile::SizeFile(std::size_t rows) : xml(declaration), keys(rows) {
    for (std::size_t i = 0; i < rows; ++i)
        keys[i] = static_cast<int>(i / 2);
    std::shuffle(keys.begin(), keys.end(), std::mt19937(30));
    xml += "<Dimensions>\n";
    for (std::size_t i = 0; i < rows; ++i) {
        const auto key = static_cast<std::size_t>(keys[i]);
        const std::string values[dimensions] = {
            PartKind(key),
            i % 2 == 0 ? "12" : "16",
            Numbered("%u", 20 + key % 200),
            Numbered("%u.5", 10 + key),
            Numbered("GP-%06u", key),
            Numbered("%u", 6 + key % 12),
            Numbered("%u.25", key % 40),
            Numbered("0.%02u", 1 + key % 90),
            Numbered("%u", 100 + 5 * (key % 30)),
            Numbered("%u", 1 + key % 8),
        };
        std::string elements;
        xml += "<Size";
        for (int dimension = 0; dimension < dimensions; ++dimension) {
            const std::string name = Numbered("D%u", static_cast<std::size_t>(dimension));
            xml += " " + name + "=\"" + values[dimension] + "\"";
            elements += "<" + name + ">" + values[dimension] + "</" + name + ">";
        }
        xml += ">" + elements + "</Size>\n";
    }
    xml += "</Dimensions>\n";
}

}  // namespace nux::bench
