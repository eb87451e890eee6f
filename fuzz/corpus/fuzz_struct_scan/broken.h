typedef struct
{
};
typedef struct
{
    int a;
}