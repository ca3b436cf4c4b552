// apps/fatiar/spool.h
// A file in the temporary folder that has no name, so that nothing of it can stay. What comes or goes through a pipe
// lies there meanwhile, because sound files are read and written by jumping about in them. Failure is a sentence for
// the user, thrown.
#pragma once
#include <string>

class Spool {
  public:
    Spool();
    ~Spool();
    Spool(const Spool&) = delete;
    Spool& operator=(const Spool&) = delete;

    std::string Path() const;  // as the system names it while this object lives
    void FillFromStandardInput();
    void CopyToStandardOutput();

  private:
    int descriptor_;
};
