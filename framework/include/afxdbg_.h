// Checks and trace output, as a program compiled for release has them: ASSERT does not evaluate its
// condition, VERIFY evaluates its expression and ignores the result, TRACE writes nothing. A
// library with reports of its own undefines these macros and defines them anew.
#pragma once

#define ASSERT(f) ((void)0)
#define VERIFY(f) ((void)(f))
#define ASSERT_VALID(pOb) ((void)0)
#define ASSERT_KINDOF(class_name, object) ((void)0)

#define TRACE(...) ((void)0)
#define TRACE0(sz) ((void)0)
#define TRACE1(sz, p1) ((void)0)
#define TRACE2(sz, p1, p2) ((void)0)
#define TRACE3(sz, p1, p2, p3) ((void)0)
