#include "PlatformFileDialog.h"

#include "ChildProcess.h"

#include <cstdlib>
#include <unistd.h>

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
    ChildProcessOptions options;
    options.captureOutput = true;
    // The dialog programs chatter about their toolkit on stderr; the host's terminal is not theirs.
    options.quietErrors = true;
    ChildProcessResult dialog = runChildProcess(commandLine(program, request), options);
    if (!dialog.finished || dialog.exitCode == 127 || dialog.exitCode == 126) return Outcome::unavailable;
    std::string& output = dialog.output;
    while (!output.empty() && (output.back() == '\n' || output.back() == '\r'))
        output.pop_back();
    // A question prints nothing: its answer is the exit code alone.
    if (dialog.exitCode != 0 || (output.empty() && request.question.empty())) return Outcome::cancelled;
    path = output;
    return Outcome::chosen;
}
