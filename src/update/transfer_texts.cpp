#include "update/transfer_texts.h"

#include "foundation/numbers.h"

namespace vantor {

namespace {

constexpr double bytesPerKilobyte = 1024;

// Quirk: in these texts "kb" stands with a blank ahead or without.
std::string wholeKilobytes(std::int64_t bytes) {
    return fixedNumber(roundHalfEven(static_cast<double>(bytes) / bytesPerKilobyte), 0);
}

std::string percentText(std::int64_t bytes, std::int32_t size) {
    return " kb (" + fixedNumber(percentage(bytes, size), 0) + "%)";
}

} // namespace

std::string_view stateText(TransferState state) noexcept {
    switch (state) {
    case TransferState::ResolvingHost:
        return "Resolving host";
    case TransferState::HostResolved:
        return "Resolved host";
    case TransferState::Connecting:
        return "Connecting";
    case TransferState::Connected:
        return "Connected";
    default:
        return {};
    }
}

double percentage(std::int64_t bytes, std::int32_t size) {
    return roundHalfEven(static_cast<double>(bytes) / size * 100);
}

std::string downloadedText(std::int64_t bytes) {
    return "Downloaded " + generalNumber(roundHalfEven(static_cast<double>(bytes) / bytesPerKilobyte * 100) / 100) +
           "kb";
}

std::string partText(std::int64_t bytes, std::int32_t size) {
    return wholeKilobytes(bytes) + " kb of " + wholeKilobytes(size) + percentText(bytes, size);
}

std::string countText(std::int64_t bytes) {
    return wholeKilobytes(bytes) + " kb downloaded";
}

std::string savedText(std::int64_t bytes, std::int32_t size) {
    return size < 1 ? downloadedText(bytes)
                    : "File Size: " + wholeKilobytes(size) + " kb.  Downloaded " + wholeKilobytes(bytes) +
                          percentText(bytes, size);
}

std::string completeText(std::int64_t bytes) {
    return "Downloaded " + fixedNumber(static_cast<double>(bytes) / bytesPerKilobyte, 2) + " kb (100%)";
}

} // namespace vantor
