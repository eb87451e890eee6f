int main(void) { /* c */ return 0; }
