// PanelCheck.h - the bundle, for what runs without a window.
#pragma once

#include "dialog/twin/Twin.hpp"

#include <string>

namespace dialog {

class BundleLook : public PanelLook
{
  public:
    explicit BundleLook(const std::string& path) : path_(path) {}

    std::string marginAlert() override;
    Failure load(std::string& name) override;

  private:
    std::string path_;
};

} // namespace dialog
