set(test_parts 4)
