target_link_libraries(test_docs PRIVATE ovri_encyclopaedia)
set(test_cost 20)
