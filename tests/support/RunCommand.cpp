#include "RunCommand.h"

#include "TempDir.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sys/wait.h>

namespace
{
std::string slurp(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}
} // namespace

std::string shellQuote(const std::string& argument)
{
    std::string quoted = "'";
    for (char c : argument)
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return quoted + "'";
}

CommandResult runCommand(const std::string& commandLine)
{
    TempDir capture;
    const std::string out = capture.file("out"), err = capture.file("err");
    const int status = std::system((commandLine + " >" + shellQuote(out) + " 2>" + shellQuote(err)).c_str());
    CommandResult result;
    result.exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    result.out = slurp(out);
    result.err = slurp(err);
    return result;
}
