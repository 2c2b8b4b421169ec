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

std::string CatalogueFile(std::size_t parts) {
    std::string file = declaration;
    file += "<Catalog>\n";
    for (std::size_t i = 0; i < parts; ++i) {
        if (i % 100 == 0)
            file += "<Folder><Name>" + Numbered("Series %u", i / 100) + "</Name>\n";
        file += "  <Part><ID>" + PartId(i) + "</ID><Name>" + MessageId(i) + "</Name></Part>\n";
        if (i % 100 == 99 || i + 1 == parts)
            file += "</Folder>\n";
    }
    return file + "</Catalog>\n";
}

}  // namespace nux::bench
