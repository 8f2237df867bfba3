#include "command.h"

int main(int argc, char** argv)
{
    return plexorn::RunCommand(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
}
