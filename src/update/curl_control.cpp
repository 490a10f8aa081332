#include "update/curl_control.h"

#include "foundation/code_page.h"
#include "foundation/error.h"
#include "foundation/replacing_file.h"
#include "foundation/text.h"
#include "update/curl_handle.h"
#include "update/curl_request.h"
#include "update/response_buffer.h"
#include "update/second_ticker.h"

#include <array>
#include <deque>
#include <optional>
#include <utility>

namespace vantor {

namespace {

constexpr std::size_t mostBuffered = std::size_t{1024} * 1024; // so that a step of a timer brings enough
constexpr std::size_t enoughBuffered = 1024;                   // a chunk: no need to wait for more
constexpr int mostRedirects = 10;

// A blank is no character of an address.
std::string escapeBlanks(std::string_view address) {
    return replaceAll(address, " ", "%20");
}

// A response is held back while a megabyte of it waits to be fetched.
class CurlControl final : public TransferControl {
  public:
    explicit CurlControl(CurlSurroundings surroundings) : m_surroundings(std::move(surroundings)) {}
    CurlControl(const CurlControl&) = delete;
    CurlControl& operator=(const CurlControl&) = delete;
    ~CurlControl() override { stop(); }

    void execute(std::string_view url, std::string_view verb) override;
    void cancel() override { stop(); }
    void advance(int milliseconds) override;
    std::optional<std::string> nextChunk(std::size_t most) override;
    std::string header(std::string_view name) override { return m_curl.header(name); }
    std::string responseText() override { return m_errorText; }
    bool stillExecuting() override { return m_running; }
    std::int64_t bytesSaved() override { return m_saved; }

    AccessType accessType() override;
    void setAccessType(AccessType type) override;
    std::string proxy() override { return m_proxy; }
    void setProxy(std::string_view proxy) override { m_proxy = proxy; }
    void setUserName(std::string_view name) override { m_userName = name; }
    void setPassword(std::string_view password) override { m_password = password; }
    void setRequestTimeout(int seconds) override { m_requestTimeout = seconds; }

  private:
    enum class Task { Fetch, ChangeFolder, Save };

    void requireReady() const;
    void stop() noexcept;
    void reset() noexcept;
    void perform(int milliseconds);
    void turn();
    void setUpCallbacks();
    void start(const std::string& url);
    void request(const std::string& url);
    void begin();
    void ended(CURLcode code);
    void followRedirect();
    void succeeded();
    void failed(std::string_view text);
    void failed(CURLcode code);
    void bodyBegins();
    void reached(TransferState state);
    void countSeconds();

    [[nodiscard]] std::size_t received(std::string_view bytes);
    void headerLine(std::string_view line);

    static std::size_t onBody(char* data, std::size_t size, std::size_t count, void* control) noexcept;
    static std::size_t onHeader(char* data, std::size_t size, std::size_t count, void* control) noexcept;
    static int onSocket(void* control, curl_socket_t socket, curlsocktype purpose) noexcept;
    static int onRequest(void* control, char* remote, char* local, int remotePort, int localPort) noexcept;

    CurlSurroundings m_surroundings;
    CurlHandle m_curl;
    std::array<char, CURL_ERROR_SIZE> m_errorBuffer{};
    AccessType m_accessType = AccessType::SystemDefault;
    std::string m_proxy;
    std::string m_userName;
    std::string m_password;
    int m_requestTimeout = 0; // seconds

    Task m_task = Task::Fetch;
    bool m_running = false;
    std::string m_url;
    bool m_secure = false; // began with https
    bool m_redirected = false;
    int m_redirects = 0;
    std::optional<ProxyQuestion> m_question; // not answered yet
    ProxyAnswer m_systemProxy;
    std::string m_errorText;
    std::deque<TransferState> m_states; // reached and not told yet
    TransferState m_lastState = TransferState::Progress;
    std::optional<Error> m_fault;
    ResponseBuffer m_buffer;
    bool m_paused = false;
    bool m_complete = false;
    bool m_bodyBegan = false;
    bool m_awaitsResponse = false;
    int m_secondsWaited = 0;
    SecondTicker m_ticker;
    std::string m_folder; // of the file server, as CD left it
    std::unique_ptr<ReplacingFile> m_file;
    std::int64_t m_saved = 0; // bytes in it
};

void CurlControl::requireReady() const {
    if (!m_curl.isReady()) {
        throw transferError(TransferError::NotRegistered, "The transfer library can't be used");
    }
}

void CurlControl::execute(std::string_view url, std::string_view verb) {
    requireReady();
    if (m_running) {
        throw transferError(TransferError::StillExecuting, "Still executing last request");
    }
    stop();
    const std::string address = escapeBlanks(url);
    if (verb == "GET") {
        m_task = Task::Fetch;
        start(address);
    } else if (verb.starts_with("CD ")) {
        m_task = Task::ChangeFolder;
        m_folder = escapeBlanks(replaceAll(verb.substr(3), "\\", "/"));
        start(address + "/" + m_folder);
    } else if (verb.starts_with("GET ")) {
        const std::string_view names = verb.substr(4);
        const std::size_t blank = names.find(' ');
        if (blank == 0 || blank == std::string_view::npos) { // without a name the server would send its list of files
            throw Error(ErrorCode::BadFileName);
        }
        m_task = Task::Save;
        m_file = std::make_unique<ReplacingFile>(trim(names.substr(blank)));
        start(address + "/" + m_folder + std::string(names.substr(0, blank)));
    } else if (verb == "CLOSE") {
        m_folder.clear();
        m_curl.closeConnections();
        m_states = {TransferState::Disconnecting, TransferState::Disconnected, TransferState::ResponseCompleted};
    } else {
        throw Error(ErrorCode::InvalidCall);
    }
}

void CurlControl::start(const std::string& url) {
    reset();
    m_secure = lower(url).starts_with("https:");
    request(url);
    reached(TransferState::ResolvingHost);
}

// Asks for an address: the first one, or what a redirect names.
void CurlControl::request(const std::string& url) {
    m_url = url;
    m_redirected = false;
    m_awaitsResponse = true;
    m_secondsWaited = 0;
    m_ticker.restart();
    m_systemProxy.reset();
    if (m_accessType == AccessType::SystemDefault && m_surroundings.proxy) {
        m_question.emplace(m_surroundings.proxy, url);
    } else {
        begin();
    }
    m_running = true;
}

void CurlControl::begin() {
    m_curl.clear();
    setUpRequest(m_curl, {.url = m_url,
                          .secure = m_secure,
                          .folderOnly = m_task == Task::ChangeFolder,
                          .certificates = m_surroundings.certificates,
                          .accessType = m_accessType,
                          .proxy = m_proxy,
                          .systemProxy = m_systemProxy,
                          .userName = m_userName,
                          .password = m_password});
    setUpCallbacks();
    m_curl.begin();
}

void CurlControl::setUpCallbacks() {
    m_curl.set(CURLOPT_ERRORBUFFER, m_errorBuffer.data());
    m_curl.set(CURLOPT_WRITEFUNCTION, &CurlControl::onBody);
    m_curl.set(CURLOPT_WRITEDATA, this);
    m_curl.set(CURLOPT_HEADERFUNCTION, &CurlControl::onHeader);
    m_curl.set(CURLOPT_HEADERDATA, this);
    m_curl.set(CURLOPT_SOCKOPTFUNCTION, &CurlControl::onSocket);
    m_curl.set(CURLOPT_SOCKOPTDATA, this);
    m_curl.set(CURLOPT_PREREQFUNCTION, &CurlControl::onRequest);
    m_curl.set(CURLOPT_PREREQDATA, this);
}

// What an earlier request left. The file of a save is already that of the new one.
void CurlControl::reset() noexcept {
    m_states.clear();
    m_lastState = TransferState::Progress;
    m_fault.reset();
    m_errorBuffer.fill('\0');
    m_errorText.clear();
    m_buffer.clear();
    m_paused = false;
    m_complete = false;
    m_bodyBegan = false;
    m_awaitsResponse = false;
    m_secondsWaited = 0;
    m_saved = 0;
    m_redirects = 0;
    m_redirected = false;
    m_question.reset();
}

void CurlControl::stop() noexcept {
    m_running = false;
    m_curl.end();
    reset();
    m_file.reset();
}

// A state that was passed is not gone back to: redirects and a second connection would.
void CurlControl::reached(TransferState state) {
    if (state > m_lastState) {
        m_lastState = state;
        m_states.push_back(state);
    }
}

void CurlControl::advance(int milliseconds) {
    requireReady();
    perform(milliseconds);
    // Told out here and not from within the library, so that the listener may cancel and begin anew.
    while (!m_states.empty()) {
        const TransferState state = m_states.front();
        m_states.pop_front();
        tellState(state);
    }
    if (m_fault) {
        throw *std::exchange(m_fault, std::nullopt);
    }
}

// The wait is for when there is nothing to tell and nothing to fetch.
void CurlControl::perform(int milliseconds) {
    if (m_paused && m_buffer.size() < enoughBuffered) {
        m_paused = false;
        m_curl.unpause();
    }
    turn();
    countSeconds();
    if (m_states.empty() && !m_fault && m_buffer.size() < enoughBuffered) {
        m_curl.poll(milliseconds);
        turn();
    }
}

void CurlControl::turn() {
    try {
        if (m_question && m_question->isAnswered()) {
            m_systemProxy = m_question->answer();
            m_question.reset();
            begin();
        }
        if (const std::optional<CURLcode> code = m_curl.turn()) {
            ended(*code);
        }
    } catch (...) { // what could not even begin is over
        m_running = false;
        m_question.reset();
        failed(currentError().description());
    }
}

void CurlControl::countSeconds() {
    if (m_question) { // nothing is asked of the server yet
        m_ticker.restart();
        return;
    }
    if (!m_running || !m_awaitsResponse || m_requestTimeout <= 0 || !m_ticker.ticked()) {
        return;
    }
    if (++m_secondsWaited >= m_requestTimeout) {
        stop();
        m_fault = transferError(TransferError::TimedOut, "Request timed out");
    }
}

void CurlControl::ended(CURLcode code) {
    if (code == CURLE_OK && m_redirected) {
        followRedirect();
        return;
    }
    m_running = false;
    if (code == CURLE_OK) {
        succeeded();
        return;
    }
    if (code == CURLE_GOT_NOTHING && !m_bodyBegan) {
        m_file.reset();
        m_fault = transferError(TransferError::CannotComplete, "Unable to complete request");
    } else if (code == CURLE_OPERATION_TIMEDOUT && !m_bodyBegan) {
        m_file.reset();
        m_fault = transferError(TransferError::TimedOut, "Request timed out");
    } else {
        failed(m_errorBuffer.front() != '\0' ? m_errorBuffer.data() : curl_easy_strerror(code));
    }
}

// Not left to the library: the way through the proxies is another one for each address.
void CurlControl::followRedirect() {
    const std::string url = m_curl.redirectUrl();
    m_running = false;
    if (++m_redirects > mostRedirects) {
        failed("Too many redirects");
    } else {
        request(url);
    }
}

void CurlControl::succeeded() {
    m_complete = true;
    if (m_task != Task::ChangeFolder) {
        bodyBegins();
    }
    if (m_file) {
        try {
            m_file->commit();
        } catch (...) {
            m_errorText = currentError().description();
            m_states.push_back(TransferState::Error);
        }
        m_file.reset();
        if (!m_errorText.empty()) {
            return;
        }
    }
    reached(TransferState::ResponseCompleted);
}

void CurlControl::failed(std::string_view text) {
    m_file.reset();
    if (m_errorText.empty()) { // else the disk told what was wrong
        m_errorText = fromUtf8(text);
    }
    m_states.push_back(TransferState::Error);
}

void CurlControl::bodyBegins() {
    if (m_bodyBegan) {
        return;
    }
    m_bodyBegan = true;
    m_awaitsResponse = false;
    reached(TransferState::ReceivingResponse);
    reached(TransferState::ResponseReceived);
    if (m_task == Task::Fetch) {
        reached(TransferState::ResponseCompleted); // fetched while it still arrives
    }
}

std::size_t CurlControl::received(std::string_view bytes) {
    if (m_redirected) {
        return bytes.size(); // a page that nobody reads
    }
    if (m_task == Task::Fetch && m_buffer.size() >= mostBuffered) {
        m_paused = true;
        return CURL_WRITEFUNC_PAUSE;
    }
    bodyBegins();
    if (!m_file) {
        m_buffer.append(bytes);
    } else {
        m_file->write(bytes);
        m_saved += static_cast<std::int64_t>(bytes.size());
    }
    // Bytes that arrive show that the server is there, also when a chunk of them takes minutes.
    const TransferState sign = m_file ? TransferState::Progress : TransferState::ReceivingResponse;
    if (m_states.empty()) {
        m_states.push_back(sign);
    }
    return bytes.size();
}

std::size_t CurlControl::onBody(char* data, std::size_t size, std::size_t count, void* control) noexcept {
    auto& self = *static_cast<CurlControl*>(control);
    try {
        return self.received({data, size * count});
    } catch (...) {
        try {
            self.m_errorText = currentError().description();
        } catch (...) {
            self.m_errorText.clear(); // then the library's own words are told
        }
        return 0; // ends the transfer as failed
    }
}

void CurlControl::headerLine(std::string_view line) {
    m_secondsWaited = 0;
    if (line == "\r\n" || line == "\n") {
        m_awaitsResponse = false;
        m_redirected = m_curl.isRedirect();
    }
    reached(TransferState::ReceivingResponse);
}

std::size_t CurlControl::onHeader(char* data, std::size_t size, std::size_t count, void* control) noexcept {
    try {
        static_cast<CurlControl*>(control)->headerLine({data, size * count});
        return size * count;
    } catch (...) {
        return 0;
    }
}

int CurlControl::onSocket(void* control, curl_socket_t /*socket*/, curlsocktype /*purpose*/) noexcept {
    auto& self = *static_cast<CurlControl*>(control);
    try {
        self.m_awaitsResponse = !self.m_bodyBegan;
        self.reached(TransferState::HostResolved);
        self.reached(TransferState::Connecting);
        return CURL_SOCKOPT_OK;
    } catch (...) {
        return CURL_SOCKOPT_ERROR;
    }
}

int CurlControl::onRequest(void* control, char* /*remote*/, char* /*local*/, int /*remotePort*/,
                           int /*localPort*/) noexcept {
    auto& self = *static_cast<CurlControl*>(control);
    try {
        self.m_awaitsResponse = !self.m_bodyBegan;
        self.m_secondsWaited = 0;
        self.reached(TransferState::Connected);
        self.reached(TransferState::Requesting);
        self.reached(TransferState::RequestSent);
        return CURL_PREREQFUNC_OK;
    } catch (...) {
        return CURL_PREREQFUNC_ABORT;
    }
}

std::optional<std::string> CurlControl::nextChunk(std::size_t most) {
    if (m_buffer.size() < most && !m_complete) {
        return std::nullopt;
    }
    return m_buffer.take(most);
}

AccessType CurlControl::accessType() {
    requireReady();
    return m_accessType;
}

void CurlControl::setAccessType(AccessType type) {
    requireReady();
    if (type < AccessType::SystemDefault || type > AccessType::NamedProxy) {
        throw Error(380, "Invalid property value");
    }
    m_accessType = type;
}

} // namespace

std::unique_ptr<TransferControl> makeCurlControl(CurlSurroundings surroundings) {
    return std::make_unique<CurlControl>(std::move(surroundings));
}

} // namespace vantor
