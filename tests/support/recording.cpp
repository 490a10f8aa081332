#include "support/recording.h"

#include <cmath>
#include <gtest/gtest.h>

namespace vantor::test {

namespace {
constexpr double secondsPerDay = 86400;
constexpr double characterWidth = 90;
constexpr double lineHeight = 200;
} // namespace

void FakeClock::setTimer(double seconds) {
    m_now = std::floor(m_now) + seconds / secondsPerDay;
}

void FakeClock::advance(double seconds) {
    m_now += seconds / secondsPerDay;
}

void RecordingHost::message(std::string_view text) {
    messages.emplace_back(text);
    if (onMessage) {
        onMessage(text);
    }
}

bool RecordingHost::askYesNo(std::string_view text) {
    questions.emplace_back(text);
    if (answers.empty()) {
        ADD_FAILURE() << "unexpected question: " << text;
        return false;
    }
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
}

void RecordingHost::pumpEvents(Pump what) {
    ++(what == Pump::Everything ? fullPumps : paintPumps);
    if (onPump) {
        onPump(what);
    }
}

std::string RecordingHost::shortDate(const Date& date) {
    return dateSample.empty() ? SilentHost::shortDate(date) : dateSample;
}

void RecordingHost::startProgram(std::string_view program, std::string_view arguments) {
    starts.push_back({std::string(program), std::string(arguments)});
}

void RecordingCanvas::fillBox(double x1, double y1, double x2, double y2, Colour colour) {
    calls.emplace_back(FilledBox{x1, y1, x2, y2, colour});
}

void RecordingCanvas::drawLine(double x1, double y1, double x2, double y2, Colour colour) {
    calls.emplace_back(DrawnLine{x1, y1, x2, y2, colour});
}

void RecordingCanvas::drawText(double x, double y, std::string_view text) {
    calls.emplace_back(DrawnText{x, y, std::string(text)});
}

double RecordingCanvas::textWidth(std::string_view text) const {
    return characterWidth * static_cast<double>(text.size());
}

double RecordingCanvas::textHeight(std::string_view /*text*/) const {
    return lineHeight;
}

} // namespace vantor::test
