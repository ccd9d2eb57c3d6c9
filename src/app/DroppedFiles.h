#pragma once

#include <span>
#include <string>
#include <vector>

namespace kestrabel {

class CApplication;

/// The files that are meant by paths of files and folders: of a folder, with all within, those of a format
/// that can be read and the projects, in the order of their names; of files each as it is.
std::vector<std::string> FilesOf(std::span<const std::string> paths);

/// Files and folders were dropped on the window: the first project is opened, after the questions that
/// closing asks, and track files are imported into the current competitor.
void DropFiles(CApplication& application, std::span<const std::string> paths);

} // namespace kestrabel
