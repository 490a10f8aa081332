// Test support: the tests of the updater.
// What the updater's form was told, in place of a window.
#pragma once

#include "support/recording.h"
#include "update/updater.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace vantor::test {

class RecordingForm : public UpdaterForm {
  public:
    bool loaded = false;
    bool shown = false;
    int modalShows = 0;
    std::string program;
    std::string update;
    std::optional<Colour> colour;
    std::string detailsText;
    bool box = true;
    bool enabled = true;
    RecordingCanvas status;
    std::function<void()> onModal;

    void load() override { loaded = true; }
    void showForm() override { shown = true; }
    void showModally() override {
        ++modalShows;
        shown = true;
        if (onModal) {
            onModal();
        }
    }
    void unload() override { shown = loaded = false; }
    bool isShown() const override { return shown; }
    void setProgram(std::string_view text) override { program = text; }
    void setUpdate(std::string_view text, std::optional<Colour> value) override {
        update = text;
        colour = value;
    }
    void setDetails(std::string_view text) override { detailsText = text; }
    void setDisableAutoUpdate(bool value) override { box = value; }
    bool disableAutoUpdate() const override { return box; }
    void enableCommands(bool value) override { enabled = value; }
    Canvas& picStatus() override { return status; }
};

} // namespace vantor::test
