// Test support: stand-ins for the platform that note what the logic asks of them.
// The recording Host, the recording Canvas and the clock that tests set.
#pragma once

#include "foundation/canvas.h"
#include "foundation/clock.h"
#include "foundation/silent_host.h"

#include <cmath>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace vantor::test {

/// A clock that stands still until it is set: noon of 1 June 2004 at first.
class FakeClock : public Clock {
  public:
    [[nodiscard]] DateTime now() override { return m_now; }

    void set(DateTime value) { m_now = value; }
    /// Sets the time of day, in seconds since midnight, on the day the clock shows.
    void setTimer(double seconds) { m_now = std::floor(m_now) + seconds / secondsPerDay; }
    void advance(double seconds) { m_now += seconds / secondsPerDay; }

  private:
    static constexpr double secondsPerDay = 86400;
    DateTime m_now = dayNumber({2004, 6, 1}) + 0.5;
};

/// A host that notes every call. Questions are answered from a queue; one that was not expected fails the test.
class RecordingHost : public SilentHost {
  public:
    struct Start {
        std::string program;
        std::string arguments;
        friend bool operator==(const Start&, const Start&) = default;
    };

    std::vector<std::string> messages;
    std::vector<std::string> questions;
    std::vector<Pointer> pointers;
    std::vector<int> sleeps; ///< milliseconds; no time passes
    std::vector<std::string> viewedFiles;
    std::vector<std::string> openedFiles;
    std::vector<std::string> addresses;
    std::vector<Start> starts;
    int paintPumps = 0;
    int fullPumps = 0;

    std::deque<bool> answers; ///< for the questions to come
    bool pendingInput = false;
    std::optional<SystemVersion> version;
    std::string dateSample; ///< what shortDate gives for any date, unless empty
    bool opensFiles = true;
    std::string trueWord = "True";
    std::string falseWord = "False";
    std::function<void(std::string_view)> onMessage; ///< runs while a message box stands
    std::function<void(Pump)> onPump;

    void message(std::string_view text) override {
        messages.emplace_back(text);
        if (onMessage) {
            onMessage(text);
        }
    }
    bool askYesNo(std::string_view text) override {
        questions.emplace_back(text);
        if (answers.empty()) {
            ADD_FAILURE() << "unexpected question: " << text;
            return false;
        }
        const bool answer = answers.front();
        answers.pop_front();
        return answer;
    }
    void setPointer(Pointer pointer) override { pointers.push_back(pointer); }
    void pumpEvents(Pump what) override {
        ++(what == Pump::Everything ? fullPumps : paintPumps);
        if (onPump) {
            onPump(what);
        }
    }
    bool inputPending() override { return pendingInput; }
    void sleepFor(int milliseconds) override { sleeps.push_back(milliseconds); }
    std::shared_ptr<void> every(int /*milliseconds*/, std::function<void()> tick) override {
        const auto kept = std::make_shared<std::function<void()>>(std::move(tick));
        m_latestTimer = kept;
        return kept;
    }
    /// The latest timer's time comes, if it still runs.
    void tick() {
        if (const auto timer = m_latestTimer.lock()) {
            (*timer)();
        }
    }
    std::string shortDate(const Date& date) override {
        return dateSample.empty() ? SilentHost::shortDate(date) : dateSample;
    }
    std::string booleanWord(bool value) override { return value ? trueWord : falseWord; }
    std::optional<SystemVersion> systemVersion() override { return version; }
    void viewTextFile(std::string_view path) override { viewedFiles.emplace_back(path); }
    void openFile(std::string_view path, std::function<void()> failed) override {
        openedFiles.emplace_back(path);
        if (!opensFiles) {
            failed();
        }
    }
    void openAddress(std::string_view address) override { addresses.emplace_back(address); }
    void startProgram(std::string_view program, std::string_view arguments) override {
        starts.push_back({std::string(program), std::string(arguments)});
    }

  private:
    std::weak_ptr<std::function<void()>> m_latestTimer;
};

// What was drawn, with the numbers as they were given.
struct Cleared {
    friend bool operator==(const Cleared&, const Cleared&) = default;
};
struct FilledBox {
    double x1, y1, x2, y2;
    Colour colour;
    friend bool operator==(const FilledBox&, const FilledBox&) = default;
};
struct DrawnLine {
    double x1, y1, x2, y2;
    Colour colour;
    friend bool operator==(const DrawnLine&, const DrawnLine&) = default;
};
struct DrawnText {
    double x, y;
    std::string text;
    friend bool operator==(const DrawnText&, const DrawnText&) = default;
};
struct FontSize {
    double points;
    friend bool operator==(const FontSize&, const FontSize&) = default;
};
struct TextColour {
    Colour colour;
    friend bool operator==(const TextColour&, const TextColour&) = default;
};
struct BackColour {
    Colour colour;
    friend bool operator==(const BackColour&, const BackColour&) = default;
};
struct SystemColours {
    friend bool operator==(const SystemColours&, const SystemColours&) = default;
};
using CanvasCall =
    std::variant<Cleared, FilledBox, DrawnLine, DrawnText, FontSize, TextColour, BackColour, SystemColours>;

/// A canvas that notes every call. Each character is 90 twips wide, whatever the font, and a text 200 high.
class RecordingCanvas : public Canvas {
  public:
    double width = 3000; ///< inner size
    double height = 600;
    double border = 30; ///< on each side, in the outer size
    std::vector<CanvasCall> calls;

    [[nodiscard]] double innerWidth() const override { return width; }
    [[nodiscard]] double innerHeight() const override { return height; }
    [[nodiscard]] double outerWidth() const override { return width + 2 * border; }
    [[nodiscard]] double outerHeight() const override { return height + 2 * border; }
    void clear() override { calls.emplace_back(Cleared{}); }
    void fillBox(double x1, double y1, double x2, double y2, Colour colour) override {
        calls.emplace_back(FilledBox{x1, y1, x2, y2, colour});
    }
    void drawLine(double x1, double y1, double x2, double y2, Colour colour) override {
        calls.emplace_back(DrawnLine{x1, y1, x2, y2, colour});
    }
    void drawText(double x, double y, std::string_view text) override {
        calls.emplace_back(DrawnText{x, y, std::string(text)});
    }
    [[nodiscard]] double textWidth(std::string_view text) const override {
        return 90 * static_cast<double>(text.size());
    }
    [[nodiscard]] double textHeight(std::string_view /*text*/) const override { return 200; }
    void setFontSize(double points) override { calls.emplace_back(FontSize{points}); }
    void setTextColour(Colour colour) override { calls.emplace_back(TextColour{colour}); }
    void setBackColour(Colour colour) override { calls.emplace_back(BackColour{colour}); }
    void useSystemColours() override { calls.emplace_back(SystemColours{}); }

    /// The calls of one kind, in order.
    template <class Kind>
    [[nodiscard]] std::vector<Kind> all() const {
        std::vector<Kind> found;
        for (const CanvasCall& call : calls) {
            if (const Kind* one = std::get_if<Kind>(&call)) {
                found.push_back(*one);
            }
        }
        return found;
    }
};

} // namespace vantor::test
