/*
 * Stands in the place of the system's print client: writes down the arguments that it was given,
 * then becomes the client.
 *
 * Beside the executable lies a file of the same name with ".record" at its end. Its first line is
 * the file to append to, its second line is the client. A record is the number of arguments in
 * decimal digits, then the arguments (the name of the program first), each text with a NUL at its
 * end. A record is written at one blow, so runs at the same time do not mix.
 */
#define _GNU_SOURCE
#include <errno.h>
#include <fcntl.h>
#include <limits.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

enum { CannotRecord = 125 };

static void fail(const char *what)
{
    fprintf(stderr, "record-argv: %s: %s\n", what, strerror(errno));
    exit(CannotRecord);
}

static void chop(char *line)
{
    line[strcspn(line, "\n")] = '\0';
}

static void readSettings(char *record, char *client, int size)
{
    char path[PATH_MAX + 8];
    const ssize_t length = readlink("/proc/self/exe", path, PATH_MAX);
    if (length < 0)
        fail("/proc/self/exe");
    strcpy(path + length, ".record");
    FILE *file = fopen(path, "re");
    if (!file || !fgets(record, size, file) || !fgets(client, size, file))
        fail(path);
    fclose(file);
    chop(record);
    chop(client);
}

static size_t recordSize(int argc, char **argv)
{
    size_t size = (size_t)snprintf(NULL, 0, "%d", argc) + 1;
    for (int i = 0; i < argc; ++i)
        size += strlen(argv[i]) + 1;
    return size;
}

static void writeRecord(const char *path, int argc, char **argv)
{
    const size_t size = recordSize(argc, argv);
    char *text = malloc(size);
    if (!text)
        fail("memory");
    char *end = text + sprintf(text, "%d", argc) + 1;
    for (int i = 0; i < argc; ++i)
        end = stpcpy(end, argv[i]) + 1;

    const int file = open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
    if (file < 0 || write(file, text, size) != (ssize_t)size)
        fail(path);
    close(file);
    free(text);
}

int main(int argc, char **argv)
{
    char record[PATH_MAX];
    char client[PATH_MAX];
    readSettings(record, client, PATH_MAX);
    writeRecord(record, argc, argv);
    execv(client, argv);
    fail(client);
}
