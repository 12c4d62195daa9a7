#include "HeadUnit.h"

int main(int argc, char** argv)
{
    HeadUnit headUnit(argc, argv);
    headUnit.init();
    return HeadUnit::exec();
}
