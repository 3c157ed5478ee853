set(test_parts 4)
set(test_cost 10)
