#include "foundation/log.h"
#include "foundation/numbers.h"
#include "foundation/progress.h"
#include "foundation/replacing_file.h"
#include "update/transfer_states.h"

#include <optional>
#include <utility>

namespace vantor {

namespace {

constexpr std::string_view stateProcedure = "sub inet1_statechanged";
constexpr std::size_t chunkSize = 1024;
constexpr int chunkWait = 50; // milliseconds; it ends as soon as bytes come
constexpr double secondsPerReport = 0.25;
constexpr double secondsPerDay = 86400;
constexpr double bytesPerKilobyte = 1024;

// In the texts below "kb" stands with a blank ahead or without, and both are meant.
std::string wholeKilobytes(double bytes) {
    return fixedNumber(roundHalfEven(bytes / bytesPerKilobyte), 0);
}

std::string roundedKilobytes(double bytes) {
    return generalNumber(roundHalfEven(bytes / bytesPerKilobyte * 100) / 100);
}

double percentage(double bytes, std::int32_t size) {
    return roundHalfEven(bytes / size * 100);
}

} // namespace

void fSHAREDInternet::stateChanged(TransferState state) noexcept {
    if (!m_timerRuns) {
        return; // the tail of a transfer that is over
    }
    m_idleTicks = 0;
    switch (state) {
    case TransferState::ResolvingHost:
        showStatus("Resolving host");
        break;
    case TransferState::HostResolved:
        showStatus("Resolved host");
        break;
    case TransferState::Connecting:
        showStatus("Connecting");
        break;
    case TransferState::Connected:
        showStatus("Connected");
        break;
    case TransferState::ReceivingResponse:
        raise(Receiving);
        break;
    case TransferState::ResponseReceived:
        sorted(stateProcedure, [&] { responseReceived(); });
        break;
    case TransferState::Error:
        failedState();
        break;
    case TransferState::ResponseCompleted:
        responseCompleted();
        break;
    case TransferState::Requesting:
    case TransferState::RequestSent:
    case TransferState::Disconnecting:
    case TransferState::Disconnected:
        break;
    default:
        sorted(stateProcedure, [&] { otherState(); });
    }
}

void fSHAREDInternet::responseReceived() {
    if (m_expectedFilesize != 0) {
        return;
    }
    m_expectedFilesize = -1;
    if (m_sizeFlag) {
        const std::string length = m_control->header("Content-Length");
        if (!length.empty()) {
            m_expectedFilesize = toInt32(val(length));
        }
    }
}

void fSHAREDInternet::responseCompleted() noexcept {
    if (m_ftp) {
        return; // the control saves the file itself
    }
    if (m_expectedFilesize == 0 && !m_repeated) { // no header came; a length of 0 counts as none
        const StandardTrap trap{stateProcedure, moduleName};
        m_repeated = true;
        m_sizeFlag = false;
        trap([&] { m_control->cancel(); });
        get();
        return;
    }
    const std::uint32_t request = m_request;
    const std::string fault = sorted(stateProcedure, [&] { fetchResponse(); });
    if (!fault.empty() && m_request == request && m_timerRuns) {
        fail(fault); // without it, what was lost would be told as finished
    }
}

void fSHAREDInternet::fetchResponse() {
    const std::uint32_t run = m_run;
    std::int64_t count = 0;
    showStatus("Downloading");
    if (m_save && m_run == run) {
        m_file = std::make_unique<ReplacingFile>(m_localFile);
    }
    bool atEnd = false;
    while (!atEnd && m_run == run) {
        const std::optional<std::string> chunk = m_control->nextChunk(chunkSize);
        if (!chunk) {
            wait(chunkWait);
            continue;
        }
        m_idleTicks = 0;
        atEnd = chunk->empty();
        if (!atEnd) {
            count += chunkSize; // whatever its length: the count overshoots on the last chunk, and is meant to
        }
        keepChunk(*chunk, count);
        if (m_run == run) {
            reportChunks(count);
        }
    }
    if (m_run != run) {
        return;
    }
    if (m_file) {
        m_file->commit();
    }
    finish();
    const std::uint32_t over = m_run;
    if (!quietProgress) {
        showStatus("Downloaded " + fixedNumber(static_cast<double>(count) / bytesPerKilobyte, 2) + " kb (100%)");
    }
    if (m_run == over) {
        raise(DownloadFinished);
    }
}

void fSHAREDInternet::keepChunk(const std::string& chunk, std::int64_t count) {
    const std::string_view text = ByteArrayToString(chunk);
    if (m_save) {
        m_file->write(chunk);
        if (m_received.empty()) { // of a download nobody asks more than whether there is any text
            m_received = text;
        }
    } else if (count > longestReply) {
        logaction("Reply is longer than " + std::to_string(longestReply) + " bytes", stateProcedure, moduleName);
        fail(downloadFailed);
    } else {
        m_received += text;
    }
}

void fSHAREDInternet::reportChunks(std::int64_t count) {
    if (quietProgress || quietAll) {
        return;
    }
    const auto bytes = static_cast<double>(count);
    if (m_expectedFilesize < 1) {
        reportProgress("Downloaded " + roundedKilobytes(bytes) + "kb", 100);
        return;
    }
    if (m_received.empty()) {
        return;
    }
    const double percent = percentage(bytes, m_expectedFilesize);
    if (m_sizeFlag) {
        reportProgress(wholeKilobytes(bytes) + " kb of " + wholeKilobytes(m_expectedFilesize) + " kb (" +
                           fixedNumber(percent, 0) + "%)",
                       percent);
    } else {
        reportProgress(wholeKilobytes(bytes) + " kb downloaded", percent);
    }
}

// At most four a second; a text in between is lost.
void fSHAREDInternet::reportProgress(std::string_view text, double value) noexcept {
    constexpr double precision = 1e-5; // of a date-time value, in seconds
    const DateTime time = now();
    const double passed = (time - m_lastReport) * secondsPerDay;
    if (passed >= 0 && passed < secondsPerReport - precision) {
        return;
    }
    m_lastReport = time;
    const std::uint32_t run = m_run;
    raise(StatusText, text);
    if (m_run == run) { // a transfer that was just cancelled has told so
        raise(ProgressText, text, value);
    }
}

void fSHAREDInternet::otherState() {
    if (quietProgress) {
        return;
    }
    const auto bytes = static_cast<double>(m_control->bytesSaved());
    if (m_expectedFilesize >= 1) {
        showStatus("File Size: " + wholeKilobytes(m_expectedFilesize) + " kb.  Downloaded " + wholeKilobytes(bytes) +
                   " kb (" + fixedNumber(percentage(bytes, m_expectedFilesize), 0) + "%)");
    } else {
        showStatus("Downloaded " + roundedKilobytes(bytes) + "kb");
    }
}

void fSHAREDInternet::failedState() noexcept {
    const StandardTrap trap{stateProcedure, moduleName};
    std::string text;
    trap([&] { text = m_control->responseText(); });
    const std::uint32_t run = m_run;
    showStatus(text);
    if (m_run == run) {
        fail(text);
    }
    trap([] { timedevents(); });
}

void fSHAREDInternet::showStatus(std::string_view text) const noexcept {
    if (!quietAll) {
        raise(StatusText, text);
    }
}

std::string_view fSHAREDInternet::ByteArrayToString(std::string_view bytes) noexcept {
    return bytes.substr(0, bytes.find('\0'));
}

} // namespace vantor
