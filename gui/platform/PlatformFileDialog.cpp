#include "PlatformFileDialog.h"

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace
{
bool onPath(const char* program)
{
    const char* path = std::getenv("PATH");
    if (!path) return false;
    std::string directories = path;
    size_t start = 0;
    while (start <= directories.size())
    {
        const size_t end = directories.find(':', start);
        const std::string directory =
            directories.substr(start, end == std::string::npos ? std::string::npos : end - start);
        const std::string candidate = (directory.empty() ? std::string(".") : directory) + "/" + program;
        if (access(candidate.c_str(), X_OK) == 0) return true;
        if (end == std::string::npos) break;
        start = end + 1;
    }
    return false;
}

std::string startPath(const PlatformFileDialogRequest& request)
{
    std::string path = request.initialDirectory;
    if (!path.empty() && path.back() != '/') path += '/';
    if (request.save) path += request.defaultName;
    return path;
}
} // namespace

PlatformFileDialog::Program PlatformFileDialog::findProgram()
{
    if (onPath("zenity")) return Program::zenity;
    if (onPath("kdialog")) return Program::kdialog;
    return Program::none;
}

std::vector<std::string> PlatformFileDialog::commandLine(Program program,
                                                         const PlatformFileDialogRequest& request)
{
    std::vector<std::string> args;
    if (!request.question.empty())
    {
        if (program == Program::zenity)
            args = {"zenity", "--question", "--no-markup", "--title=" + request.title,
                    "--text=" + request.question};
        else if (program == Program::kdialog)
            args = {"kdialog", "--title", request.title, "--yesno", request.question};
    }
    else if (program == Program::zenity)
    {
        args = {"zenity", "--file-selection"};
        if (request.save) args.insert(args.end(), {"--save", "--confirm-overwrite"});
        if (request.directory) args.push_back("--directory");
        if (!request.title.empty()) args.push_back("--title=" + request.title);
        const std::string start = startPath(request);
        if (!start.empty()) args.push_back("--filename=" + start);
        for (const auto& filter : request.filters)
            args.push_back("--file-filter=" + filter.description + " | *." + filter.extension);
    }
    else if (program == Program::kdialog)
    {
        args = {"kdialog"};
        if (!request.title.empty()) args.insert(args.end(), {"--title", request.title});
        args.push_back(request.directory ? "--getexistingdirectory"
                                         : (request.save ? "--getsavefilename" : "--getopenfilename"));
        const std::string start = startPath(request);
        args.push_back(start.empty() ? "." : start);
        if (!request.directory && !request.filters.empty())
        {
            std::string filters;
            for (const auto& filter : request.filters)
            {
                if (!filters.empty()) filters += '\n';
                filters += "*." + filter.extension + "|" + filter.description;
            }
            args.push_back(filters);
        }
    }
    return args;
}

PlatformFileDialog::Outcome PlatformFileDialog::run(const PlatformFileDialogRequest& request,
                                                    std::string& path)
{
    const Program program = findProgram();
    if (program == Program::none) return Outcome::unavailable;
    const std::vector<std::string> args = commandLine(program, request);
    std::vector<char*> argv;
    for (const auto& arg : args)
        argv.push_back(const_cast<char*>(arg.c_str()));
    argv.push_back(nullptr);

    int pipeFds[2];
    if (pipe2(pipeFds, O_CLOEXEC) != 0) return Outcome::unavailable;
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, pipeFds[1], STDOUT_FILENO);
    // The dialog programs chatter about their toolkit on stderr; the host's terminal is not theirs.
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int spawned = posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(pipeFds[1]);
    if (spawned != 0)
    {
        close(pipeFds[0]);
        return Outcome::unavailable;
    }

    std::string output;
    char buffer[512];
    for (;;)
    {
        const ssize_t got = read(pipeFds[0], buffer, sizeof(buffer));
        if (got > 0)
            output.append(buffer, static_cast<size_t>(got));
        else if (got == 0 || errno != EINTR)
            break;
    }
    close(pipeFds[0]);
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR)
    {
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) == 127) return Outcome::unavailable;
    while (!output.empty() && (output.back() == '\n' || output.back() == '\r'))
        output.pop_back();
    // A question prints nothing: its answer is the exit code alone.
    if (WEXITSTATUS(status) != 0 || (output.empty() && request.question.empty())) return Outcome::cancelled;
    path = output;
    return Outcome::chosen;
}
