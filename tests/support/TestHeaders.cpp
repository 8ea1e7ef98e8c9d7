// Empty: it carries the precompiled headers of the tests.
