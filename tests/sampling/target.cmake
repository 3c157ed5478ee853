set(test_parts 2)
set(test_cost 8)
