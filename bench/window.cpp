#include "window.h"

#include "foundation/native_path.h"
#include "foundation/run_state.h"

#include <fstream>

namespace vantor::bench {

Window::Window(int& argc, char** argv) : m_application(argc, argv) {
    useHost(&m_host);
}

Window::~Window() {
    m_form.reset();
    useHost(nullptr);
}

void Window::moveTo(const std::filesystem::path& folder) {
    m_form.reset();
    startRun();
    useHost(&m_host);
    setProgramFile(folder / "Vantor");
    std::ofstream(folder / "Vantor2.ini", std::ios::binary)
        << "FSMODE, 2 \r\nFS2K2PATH," << programFolder() << "\\FS\\\r\n";
    m_form = std::make_unique<frmMain>();
    m_form->formLoad();
    m_form->show();
    QCoreApplication::processEvents();
}

} // namespace vantor::bench
