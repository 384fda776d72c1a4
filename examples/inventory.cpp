// Keeps count of what lies in a warehouse.
#include <map>
#include <string>
#include <vector>

namespace warehouse {
enum Unit{
  piece=1,
    box=12,
  pallet=480};

// One kind of goods.
class Article {
public:
Article(const std::string& name,Unit unit,int count=0):name_(name),unit_(unit),count_(count){}
   const std::string &name() const;
  int count() const;
      bool take(int wanted);
private:
  std::string name_;
 Unit unit_;
  int count_;  // never below zero
};

const std::string &Article::name() const { return name_; }
int Article::count() const{return count_;}

bool Article::take(int wanted){
if(wanted<=0||count_<wanted) return false;
   count_-=wanted; /* what is left */
   return true;
}

class Inventory : public Observable,private Lockable{
public:
    void add(const Article& article);
  int total(Unit unit) const;
    Article* find(const char *name);
private:
    std::map<std::string,Article> articles_;
    int lookups_;
    const char* owner_;
};

int Inventory::total(Unit unit) const
{
  int sum=0;
  for(std::map<std::string,Article>::const_iterator it=articles_.begin();it!=articles_.end();++it){
      switch(it->second.unit()){
      case piece: sum+=it->second.count();
        break;
      case box:
          sum+=box*it->second.count();
          break;
      default:
          sum+=pallet*it->second.count();
      }
  }
#ifdef TRACE
  report("total",sum);
#endif
  return sum;
}

Article* Inventory::find(const char *name){
    Article *found=0;
  int steps=0;
    ++lookups_;
    try { found=&articles_.at(name);
    } catch(const std::out_of_range& e){ found=0; }
    if(!found&&lookups_>1000){ reset();
    }
    else if(!found) steps=lookups_%7;
    else{ steps=0; }
    while(steps>0){ steps--; }
    return found;
}
}
