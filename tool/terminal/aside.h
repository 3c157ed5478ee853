// Standard output set aside while one command performs another.
#pragma once

// While it lives, what is written to standard output goes to standard error or, when quiet,
// nowhere.
class OutputAside {
  public:
    explicit OutputAside(bool quiet);
    ~OutputAside();
    OutputAside(const OutputAside&) = delete;
    OutputAside& operator=(const OutputAside&) = delete;

  private:
    int kept_;
};
