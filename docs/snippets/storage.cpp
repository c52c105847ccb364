#include <vexor/vexor.h>

#include <cstdio>

int main()
{
    // [view]
    double block[6] = {1, 2, 3, 4, 5, 6};
    MatDbl view(2, 3, block); // columns (1, 2), (3, 4), (5, 6); nothing is copied
    view(0, 2) = 50;          // writes the caller's block
    std::printf("written through:   %g\n", block[4]);
    // [view]

    // [copy]
    MatDbl copy = view; // a copy of a view owns its storage
    copy(0, 0) = -1;
    std::printf("a copy written:    %g\n", block[0]);
    // [copy]

    // [detach]
    view = MatDbl(2, 3, 0.0); // assigning to a view takes it off the caller's block
    std::printf("the view assigned: %g\n", block[0]);
    // [detach]

    // [resize]
    MatDbl matrix(2, 2, 7.0);
    matrix.ReSize(2, 2, block); // same shape and own storage: nothing happens, no view is made
    matrix.ReSize(3, 2);        // new shape: elements are unset
    matrix.ReSize(2, 3, 1.0);   // new shape and a value for every element
    std::printf("%d x %d\n", matrix.RowCount(), matrix.ColumnCount());
    // [resize]
}
