// apps/fatiar/paths.h
// What a path tells of its file. Lists may refer to files of another system, so some paths are none of this one.
#pragma once
#include <string>

enum class FileKind { Other, Wav, Flac, Sound, Video };  // Sound: of another format

FileKind KindOf(const std::string& path);       // by the ending, in either case
bool IsForeign(const std::string& path);        // an address, or C:\fala.mp4 and its kin
std::string FileName(const std::string& path);  // without its folders
