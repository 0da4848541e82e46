#include "ChildProgram.h"

#include "files/TextCoding.h"

#include <csignal>
#include <spawn.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

ChildProgram::ChildProgram(const std::string& name, const std::vector<std::wstring>& arguments) {
    std::vector<std::string> texts = {std::string(PROGRAMS) + "/" + name};
    for (const std::wstring& argument : arguments)
        texts.push_back(zdr::toUtf8(argument));
    std::vector<char*> pointers;
    for (std::string& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    pid_t process = 0;
    const int error = posix_spawn(&process, texts[0].c_str(), nullptr, nullptr, pointers.data(), environ);
    if (error != 0)
        throw std::system_error(error, std::generic_category(), "can't start " + texts[0]);
    m_process = process;
}

ChildProgram::~ChildProgram() {
    kill();
}

std::string ChildProgram::end() {
    siginfo_t end{};
    // WNOWAIT leaves the end for kill().
    if (waitid(P_PID, static_cast<id_t>(m_process), &end, WEXITED | WNOHANG | WNOWAIT) != 0 || end.si_pid == 0)
        return {};
    return (end.si_code == CLD_EXITED ? "status " : "signal ") + std::to_string(end.si_status);
}

bool ChildProgram::kill() {
    if (m_process == 0)
        return false;
    const pid_t process = static_cast<pid_t>(m_process);
    m_process = 0;
    ::kill(process, SIGKILL);
    int status = 0;
    waitpid(process, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
}
