// apps/fatiar/outputs.h
// The files of one result. Each is written under a hidden name beside its own; Commit gives all of them their names.
// Without Commit the end of this object takes away everything that it made, folders too. What cannot be done is thrown
// as a sentence for the user.
#pragma once
#include <filesystem>
#include <map>
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

    bool overwrite_;
    std::map<std::filesystem::path, std::filesystem::path> drafts_;  // by the path that each will have
    std::vector<std::filesystem::path> folders_;                     // made here, the innermost last
};
