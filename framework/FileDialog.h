#pragma once

#include <windows.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

// A line of the list of file types: "PNG picture" and "*.png".
struct FileType {
    std::string name;
    std::string pattern;
};

// What the system's dialog for files says and offers; texts are Windows-1252.
struct FileQuestion {
    std::string title;
    std::vector<FileType> types;        // of files; the first is chosen
    std::filesystem::path folder = {};  // where it starts; empty: where Windows likes
    std::string name = {};              // the name that it suggests
    std::string extension = {};         // added where the user types none; without the dot
};

// The current folder of the process, in full.
std::filesystem::path CurrentFolder();

// Both keep the current folder wherever the user looks, and answer with nothing if the user cancels. The
// answer is foreign: it may name a device.

// Asks for a file that exists.
std::optional<std::filesystem::path> AskWhichFile(HWND owner, const FileQuestion& question);

// Asks under which name to save. Windows has the user confirm the name of a file that exists.
std::optional<std::filesystem::path> AskWhereToSave(HWND owner, const FileQuestion& question);
