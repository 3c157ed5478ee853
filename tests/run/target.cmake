set(test_parts 2)
