// apps/fatiar/outputs.h
// The files of one result. Each is written under a hidden name beside its own; Commit gives all of them their names.
// Without Commit the end of this object takes away everything that it made, folders too. What cannot be done is thrown
// as a sentence for the user.
#pragma once
#include <filesystem>
#include <string>
#include <vector>

class Outputs {
  public:
    explicit Outputs(bool overwrite) : overwrite_(overwrite) {}
    Outputs(const Outputs&) = delete;
    Outputs& operator=(const Outputs&) = delete;
    ~Outputs();

    // Makes the folder of what will be at `path`. A file that is there is refused, or replaced by Commit.
    void Plan(const std::filesystem::path& path);
    std::string Draft(const std::filesystem::path& path) const;  // where to write it until then
    void WriteText(const std::filesystem::path& path, const std::string& text);
    void Commit();

  private:
    bool MakeFolder(const std::filesystem::path& folder);

    struct File {
        std::filesystem::path draft, path;
    };
    std::vector<File>::const_iterator Find(const std::filesystem::path& path) const;

    bool overwrite_;
    std::vector<File> files_;
    std::vector<std::filesystem::path> folders_;  // made here, the innermost last
};
