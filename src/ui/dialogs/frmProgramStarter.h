#pragma once

#include "app/ProgramStarter.h"

namespace pirol {

/// Starts programs on this machine.
class frmProgramStarter : public ProgramStarter {
  public:
    void Start(const std::string& program, const std::string& folder, Window window) override;
    bool Open(const std::string& file) override;
};

} // namespace pirol
