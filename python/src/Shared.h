#pragma once
// The classes of run-time size share their elements with NumPy. While an array shares the elements of an object,
// operations that would release them raise `BufferError`, as those of Python's own bytearray do.

#include "Bind.h"

#include <unordered_map>

namespace vexor::python {

/// How many arrays share the elements of an object. Python's lock guards the table.
std::unordered_map<void const*, py::ssize_t>& Shares();

/// Raises `BufferError` while arrays share the elements.
void RequireUnshared(void const* object);

/// What an exported buffer needs until it is released.
struct Export {
    void const* owner;
    Py_ssize_t shape[2];
    Py_ssize_t strides[2];
};

template <class Value>
int GetBuffer(PyObject* self, Py_buffer* view, int flags)
{
    using E = Element<Value>;
    view->obj = nullptr;
    py::detail::make_caster<Value> caster;
    if (!caster.load(self, false)) {
        PyErr_SetString(PyExc_BufferError, "the object was not initialised");
        return -1;
    }
    auto& value = py::detail::cast_op<Value&>(caster);
    Py_ssize_t const item = sizeof(E);
    auto* const details = new Export{};
    details->owner = &value;
    if constexpr (vexor::detail::isMatrix<Value>) {
        view->ndim = 2;
        details->shape[0] = value.RowCount();
        details->shape[1] = value.ColumnCount();
        details->strides[0] = item;
        details->strides[1] = item * value.RowCount();
        bool const isInRows = value.RowCount() == 1 || value.ColumnCount() == 1;
        bool const wantsRows =
            (flags & PyBUF_C_CONTIGUOUS) == PyBUF_C_CONTIGUOUS || (flags & PyBUF_STRIDES) != PyBUF_STRIDES;
        if (wantsRows && !isInRows) {
            delete details;
            PyErr_SetString(PyExc_BufferError,
                            "the matrix is stored by columns, and a buffer by rows is wanted");
            return -1;
        }
    } else {
        view->ndim = 1;
        details->shape[0] = value.Size();
        details->strides[0] = item;
    }
    view->buf = vexor::detail::FirstElement(value);
    view->itemsize = item;
    view->len = item * static_cast<Py_ssize_t>(vexor::detail::ElementCount(value));
    view->readonly = 0;
    static char formatDouble[] = "d";
    static char formatSingle[] = "f";
    view->format = (flags & PyBUF_FORMAT) == 0 ? nullptr : sizeof(E) == 8 ? formatDouble : formatSingle;
    view->shape = (flags & PyBUF_ND) == PyBUF_ND ? details->shape : nullptr;
    view->strides = (flags & PyBUF_STRIDES) == PyBUF_STRIDES ? details->strides : nullptr;
    view->suboffsets = nullptr;
    view->internal = details;
    view->obj = self;
    Py_INCREF(self);
    ++Shares()[details->owner];
    return 0;
}

void ReleaseBuffer(PyObject* self, Py_buffer* view);

/// Gives the type its buffer functions.
template <class Value>
void ShareElements(PyHeapTypeObject* type)
{
    type->ht_type.tp_as_buffer = &type->as_buffer;
    type->as_buffer.bf_getbuffer = GetBuffer<Value>;
    type->as_buffer.bf_releasebuffer = ReleaseBuffer;
}

} // namespace vexor::python
