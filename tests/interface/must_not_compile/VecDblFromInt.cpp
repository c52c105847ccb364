// A size is no vector: the constructor that takes it is explicit.
// g++: conversion from .int. to non-scalar type .const VecDbl
// clang++: no viable conversion from .int. to .const VecDbl

#include <vexor/vexor.h>

void Client()
{
#if defined(OFFENCE)
    VecDbl const v = 3;
#endif
}
