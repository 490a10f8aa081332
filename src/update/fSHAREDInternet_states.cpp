// fSHAREDInternet: what the states of the control lead to, and the response.
#include "foundation/log.h"
#include "foundation/numbers.h"
#include "foundation/progress.h"
#include "update/fSHAREDInternet.h"
#include "update/transfer_texts.h"

#include <optional>

namespace vantor {

namespace {

constexpr std::string_view stateProcedure = "sub inet1_statechanged";
constexpr std::size_t chunkSize = 1024;
constexpr double secondsPerReport = 0.25;
constexpr double secondsPerDay = 86400;

} // namespace

void fSHAREDInternet::stateChanged(TransferState state) noexcept {
    if (!underWay()) {
        return; // the tail of a transfer that is over
    }
    m_idleTicks = 0;
    switch (state) {
    case TransferState::ResolvingHost:
    case TransferState::HostResolved:
    case TransferState::Connecting:
    case TransferState::Connected:
        showStatus(stateText(state));
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
        sorted(stateProcedure, [&] { reportSaved(); });
    }
}

void fSHAREDInternet::responseReceived() {
    if (m_expectedFilesize != 0) {
        return;
    }
    m_expectedFilesize = -1;
    if (m_sizeFlag) {
        const std::string length = m_control->header("Content-Length");
        if (m_save && val(length) > static_cast<double>(longestDownload)) {
            fail(downloadFailed);
        } else if (!length.empty()) {
            m_expectedFilesize = valInt32(length);
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
        trap(&TransferControl::cancel, m_control);
        get();
        return;
    }
    const std::uint32_t run = m_run;
    const std::string fault = sorted(stateProcedure, [&] { beginResponse(); });
    if (!fault.empty() && m_run == run) {
        fail(fault);
    }
}

void fSHAREDInternet::beginResponse() {
    const std::uint32_t run = m_run;
    showStatus("Downloading");
    if (m_run != run) {
        return;
    }
    if (m_save) {
        m_file = std::make_unique<ReplacingFile>(m_localFile);
    }
    m_count = 0;
    m_fetching = true;
}

void fSHAREDInternet::takeResponse() noexcept {
    const std::uint32_t run = m_run;
    const std::string fault = sorted(stateProcedure, [&] { takeChunks(); });
    if (!fault.empty() && m_run == run) {
        fail(fault); // without it, what was lost would be told as finished
    }
}

// As much of the response as has arrived.
void fSHAREDInternet::takeChunks() {
    const std::uint32_t run = m_run;
    while (m_run == run && m_fetching) {
        const std::optional<std::string> chunk = m_control->nextChunk(chunkSize);
        if (!chunk) {
            return;
        }
        m_idleTicks = 0;
        keepChunk(*chunk);
        if (m_run == run) {
            reportChunks();
        }
        if (m_run == run && chunk->empty()) {
            endResponse();
        }
    }
}

void fSHAREDInternet::keepChunk(const std::string& chunk) {
    if (!chunk.empty()) {
        m_count += chunkSize; // Quirk: whatever its length, so the count overshoots on the last chunk.
    }
    const std::int64_t longest = m_save ? longestDownload : longestReply;
    if (m_count > longest) {
        logaction((m_save ? "File is longer than " : "Reply is longer than ") + std::to_string(longest) + " bytes",
                  stateProcedure, moduleName);
        fail(downloadFailed);
        return;
    }
    if (m_save) {
        m_file->write(chunk);
    }
    if (!m_save || m_received.empty()) { // of a download nobody asks more than whether there is any text
        m_received += ByteArrayToString(chunk);
    }
}

void fSHAREDInternet::endResponse() {
    if (m_file) {
        m_file->commit();
    }
    finish();
    const std::uint32_t over = m_run;
    if (!quietProgress) {
        showStatus(completeText(m_count));
    }
    if (m_run == over) {
        raise(DownloadFinished);
    }
}

void fSHAREDInternet::reportChunks() {
    if (quietProgress || quietAll) {
        return;
    }
    if (m_expectedFilesize < 1) {
        reportProgress(downloadedText(m_count), 100);
    } else if (!m_received.empty()) {
        reportProgress(m_sizeFlag ? partText(m_count, m_expectedFilesize) : countText(m_count),
                       percentage(m_count, m_expectedFilesize));
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

void fSHAREDInternet::reportSaved() {
    if (m_control->bytesSaved() > longestDownload) {
        fail(downloadFailed);
    } else if (!quietProgress) {
        showStatus(savedText(m_control->bytesSaved(), m_expectedFilesize));
    }
}

void fSHAREDInternet::failedState() noexcept {
    const StandardTrap trap{stateProcedure, moduleName};
    std::string text;
    trap.set(text, &TransferControl::responseText, m_control);
    const std::uint32_t run = m_run;
    showStatus(text);
    if (m_run == run) {
        fail(text);
    }
    trap(timedevents);
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
