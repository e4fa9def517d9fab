// Desktop programs run as children report how they ended, whatever the host does with SIGCHLD.
#include "ChildProcess.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
// A host's own SIGCHLD handler that reaps every child, interrupting whatever waits meanwhile.
void reapEveryChild(int)
{
    const int saved = errno;
    while (waitpid(-1, nullptr, WNOHANG) > 0)
    {
    }
    errno = saved;
}

// Installs a SIGCHLD disposition for one test and a watchdog that ends the program if anything hangs.
class ChildSignals
{
  public:
    explicit ChildSignals(void (*handler)(int))
    {
        struct sigaction action = {};
        action.sa_handler = handler; // no SA_RESTART: a host's handler interrupts our waits
        sigaction(SIGCHLD, &action, &old);
        alarm(20);
    }
    ~ChildSignals()
    {
        alarm(0);
        sigaction(SIGCHLD, &old, nullptr);
    }
    ChildSignals(const ChildSignals&) = delete;
    ChildSignals& operator=(const ChildSignals&) = delete;

  private:
    struct sigaction old = {};
};

ChildProcessResult runScript(const char* script)
{
    ChildProcessOptions options;
    options.captureOutput = true;
    return runChildProcess({"sh", "-c", script}, options);
}
} // namespace

TEST(ChildProcess, ReportsTheExitStatusAndTheOutput)
{
    const ChildProcessResult result = runScript("printf 'one\\ntwo'; exit 3");
    EXPECT_TRUE(result.finished);
    EXPECT_EQ(result.exitCode, 3);
    EXPECT_EQ(result.output, "one\ntwo");
}

TEST(ChildProcess, ArgumentsReachTheProgramAsTheyAre)
{
    ChildProcessOptions options;
    options.captureOutput = true;
    const ChildProcessResult result =
        runChildProcess({"printf", "%s|", "a b", "\"quoted\"", "$HOME", "Could not\n~/"}, options);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "a b|\"quoted\"|$HOME|Could not\n~/|");
}

TEST(ChildProcess, AProgramThatIsNotThereEndsWith127)
{
    ChildProcessOptions options;
    options.quietErrors = true;
    const ChildProcessResult result = runChildProcess({"no-such-program-anywhere"}, options);
    EXPECT_TRUE(result.finished);
    EXPECT_EQ(result.exitCode, 127);
}

TEST(ChildProcess, AHostThatIgnoresChildSignalsStillLearnsHowTheProgramEnded)
{
    const ChildSignals ignored(SIG_IGN);
    const ChildProcessResult result = runScript("sleep 0.2; echo done; exit 4");
    EXPECT_TRUE(result.finished);
    EXPECT_EQ(result.exitCode, 4);
    EXPECT_EQ(result.output, "done\n");
}

TEST(ChildProcess, AHostThatReapsChildrenInItsOwnHandlerStillLearnsHowTheProgramEnded)
{
    const ChildSignals reaped(reapEveryChild);
    for (int round = 0; round < 3; ++round)
    {
        const ChildProcessResult result = runScript("sleep 0.1; echo done; exit 5");
        EXPECT_TRUE(result.finished) << round;
        EXPECT_EQ(result.exitCode, 5) << round;
        EXPECT_EQ(result.output, "done\n") << round;
    }
}

TEST(ChildProcess, TheProgramStartsWithDefaultChildSignalsWhateverTheHostSet)
{
    const ChildSignals ignored(SIG_IGN);
    // A shell that waits for a child of its own sees its status only with the default disposition.
    const ChildProcessResult result = runScript("sh -c 'exit 6'; echo $?");
    EXPECT_EQ(result.output, "6\n");
}
