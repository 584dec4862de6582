#include "Entry.h"

int main(int argc, char **argv)
{
    return Entry(argc, argv).run();
}
