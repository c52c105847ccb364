// A size is no vector: the constructor that takes it is explicit.
// g++: conversion from .int. to non-scalar type .const VecFlt
// clang++: no viable conversion from .int. to .const VecFlt

#include <vexor/vexor.h>

void Client()
{
#if defined(OFFENCE)
    VecFlt const v = 3;
#endif
}
