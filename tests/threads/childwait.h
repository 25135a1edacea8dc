/* Waits for a child process of a test's C program. */
#ifndef CHILDWAIT_H
#define CHILDWAIT_H

#include <signal.h>
#include <stdio.h>
#include <sys/wait.h>
#include <unistd.h>

enum
{
    PATIENCE_MS = 60000
};

/* 0: the child ended well. One that hangs is killed. */
static int wait_for(pid_t child, const char *model)
{
    int status = 0;
    for (int ms = 0; waitpid(child, &status, WNOHANG) != child; ++ms) {
        if (ms == PATIENCE_MS) {
            fprintf(stderr, "%s: a child hangs\n", model);
            kill(child, SIGKILL);
            waitpid(child, NULL, 0);
            return 1;
        }
        usleep(1000);
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        fprintf(stderr, "%s: a child ends with %x\n", model, (unsigned)status);
    return !WIFEXITED(status) || WEXITSTATUS(status) != 0;
}

#endif
