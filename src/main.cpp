#include "app/ui/Startup.h"

int main(int argc, char *argv[])
{
    return tessaro::Main(argc, argv);
}
