#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <system_error>

namespace pelkor {

// What holds a user's deals is the owner's alone (files 0600, folders 0700), as mail and
// password tools keep theirs.

// Creates the folder and any missing parents; each folder made here is the owner's alone
// (folders that were there already keep their modes). Fills `error` on failure.
void CreatePrivateFolders(const std::filesystem::path& folder, std::error_code& error);

// Creates `path` empty and private when it does not exist yet; an existing file is left as it
// is. Fills `error` on failure.
void CreatePrivateFile(const std::filesystem::path& path, std::error_code& error);

// fopen(path, "a") whose file, when made, is private. nullptr on failure, with errno set.
std::FILE* OpenPrivateForAppend(const std::filesystem::path& path);

}  // namespace pelkor
