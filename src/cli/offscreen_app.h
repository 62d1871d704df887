// The Qt application a batch command paints with: off screen unless the
// environment names a platform, the fonts of the renderer installed.
#pragma once

#include <cstdlib>
#include <memory>

#include <QByteArray>
#include <QGuiApplication>

#include "render/render.h"

namespace kvcli {

class OffscreenApp {
public:
    OffscreenApp() {
        if (std::getenv("QT_QPA_PLATFORM") == nullptr) qputenv("QT_QPA_PLATFORM", QByteArray("offscreen"));
        app_ = std::make_unique<QGuiApplication>(argc_, argv_);
        kv::render::InitRender();
    }

private:
    int argc_ = 1;
    char name_[13] = "kelvaris-cli";
    char* argv_[2] = {name_, nullptr};
    std::unique_ptr<QGuiApplication> app_;
};

}  // namespace kvcli
