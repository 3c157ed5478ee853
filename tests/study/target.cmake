target_link_libraries(test_study PRIVATE ovri_study)
set(test_cost 20)
